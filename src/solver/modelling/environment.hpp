// What the handles of concert.hpp stand for. The environment owns all of it, item by item
// in arrays: a large model has tens of millions of variables, rows and terms, and half of
// them would fit into memory as records of their own.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "solver/modelling/concert.hpp"
#include "solver/record/number_list.hpp"

namespace solver {

// The names of the few items that have one; the text stays where it is.
class sparse_names {
 public:
    const char* name_of(int index) const;  // null = unnamed
    // The same, for whoever asks for most of them in their order, with a place of his own, 0 at first.
    const char* name_of(int index, std::size_t& place) const;
    void set(int index, const char* name);

 private:
    struct entry {
        int index;
        const char* name;
    };
    const char* kept(const char* name);

    std::vector<entry> entries_;  // by index
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;
    std::size_t left_ = 0;
};

struct linear_term {
    int variable;  // index
    double coefficient;
};

struct objective_data {
    double constant;
    IloObjective::Sense sense;
    std::vector<linear_term> terms;
};

struct expression_data {
    environment_data* environment;
    double constant;
    std::vector<linear_term> terms;
};

struct environment_data {
    long next_id = 1;
    long changes = 0;  // raised by all that a model's record may show

    number_list variable_lower;
    number_list variable_upper;
    std::vector<char> variable_integral;
    sparse_names variable_names;

    // Rows one after another: sum of coefficient * variable <= upper.
    std::vector<std::size_t> row_start{0};
    std::vector<int> row_variable;
    number_list row_coefficient;
    number_list row_upper;
    sparse_names row_names;

    std::vector<objective_data> objectives;
    sparse_names objective_names;

    int num_variables() const { return static_cast<int>(variable_integral.size()); }
};

struct model_data {
    environment_data* environment;
    // Constraints in the order in which they were added: those that follow one another in
    // the environment, too, as one range.
    struct range {
        int first;
        int last;
    };
    std::vector<range> constraints;
    int objective = -1;
};

// Where each variable of the environment stands in a record; -1 = not in the model.
using column_index = std::vector<int>;

// The record of a model: rows as added, columns by first appearance, those that
// only the objective holds last. Fills columns. Nothing, once cut_requested, asked now
// and then, is true.
std::optional<model_record> make_record(const model_data& model, column_index& columns,
                                        const std::function<bool()>& cut_requested);

}  // namespace solver
