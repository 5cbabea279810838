// What the handles of concert.hpp point to. The environment owns all of it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <memory>
#include <vector>

#include "solver/modelling/concert.hpp"

namespace solver {

// Many short arrays that stay where they are, in blocks: no growth moves them and
// none is released by itself.
template <typename item>
class block_store {
 public:
    item* take(std::size_t count) {
        if (count > left_) {
            left_ = std::max(count, block_size);
            blocks_.emplace_back(new item[left_]);  // left as it is: every item taken is written
            next_ = blocks_.back().get();
        }
        left_ -= count;
        next_ += count;
        return next_ - count;
    }

 private:
    static constexpr std::size_t block_size = std::size_t{1} << 12;
    std::vector<std::unique_ptr<item[]>> blocks_;
    item* next_ = nullptr;
    std::size_t left_ = 0;
};

struct linear_term {
    int variable;  // position among the environment's variables
    double coefficient;
};

enum class extractable_kind { variable, constraint, objective };

struct extractable_data {
    environment_data* environment;
    long id;
    extractable_kind kind;
    const char* name = nullptr;  // null = unnamed
};

struct variable_data : extractable_data {
    double lower;
    double upper;
    IloNumVar::Type type;
    int index;  // position among the environment's variables
};

// The terms of constraints stand in the environment: most rows have two or three,
// too few for a vector each.
struct constraint_data : extractable_data {
    const linear_term* terms;
    std::size_t num_terms;
    double upper;
};

struct objective_data : extractable_data {
    double constant;
    IloObjective::Sense sense;
    std::vector<linear_term> terms;
};

struct expression_data {
    environment_data* environment;
    double constant;
    std::vector<linear_term> terms;
};

// Deques, because handles point into them.
struct environment_data {
    long next_id = 1;
    long changes = 0;  // raised by all that a model's record may show
    std::deque<variable_data> variables;
    std::deque<constraint_data> constraints;
    std::deque<objective_data> objectives;
    block_store<char> names;
    block_store<linear_term> row_terms;
};

struct model_data {
    environment_data* environment;
    std::vector<constraint_data*> constraints;
    objective_data* objective = nullptr;
};

// Where each variable of the environment stands in a record; -1 = not in the model.
using column_index = std::vector<int>;

// The record of a model: rows as added, columns by first appearance, those that
// only the objective holds last. Fills columns.
model_record make_record(const model_data& model, column_index& columns);

}  // namespace solver
