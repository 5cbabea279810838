// What the handles of concert.hpp point to. The environment owns all of it.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "solver/concert.hpp"

namespace solver {

struct linear_term {
    variable_data* variable;
    double coefficient;
};

enum class extractable_kind { variable, constraint, objective };

struct extractable_data {
    environment_data* environment;
    long id;
    extractable_kind kind;
    const std::string* name = nullptr;  // null = unnamed
};

struct variable_data : extractable_data {
    double lower;
    double upper;
    IloNumVar::Type type;
    std::size_t index;  // position among the environment's variables
};

// The terms of constraints stand one after the other in the environment: most
// rows have two or three, too few for a vector each.
struct constraint_data : extractable_data {
    std::size_t first_term;
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
    std::deque<variable_data> variables;
    std::deque<constraint_data> constraints;
    std::deque<objective_data> objectives;
    std::deque<std::string> names;
    std::vector<linear_term> row_terms;
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
