// Models of the reachability shape, drawn at random, and a plain way to solve them.
#pragma once

#include <functional>

#include "solver/reduce/contested_problem.hpp"
#include "solver/support/test_models.hpp"

struct reach_plan {
    int num_choices = 6;
    int num_groups = 3;  // networks of one root each
    int nodes_per_group = 5;
    int arcs_per_node = 2;
    int window = 0;             // a group's gates are of so many choices that follow one another; 0 = of all
    double lone_share = 0.2;    // choices with one gate
    double demand_share = 0.6;  // nodes with a demand
    int largest_weight = 1;
    bool one_side = false;  // a group uses at most one gate of a choice, as shortest paths from one root do
    bool swapped = false;   // the ends of every choice named the other way round
};

// Most choices stay contested, and much is at odds: from 100 choices on, plain solvers take long.
reach_plan hard_plan(int num_choices);

// Rows in the order of the program's own models. A group uses a gate at most once, as
// a network has an arc. The names of gates begin with "o_", those of demands with "s_".
solver::model_record draw_reach_model(unsigned seed, const reach_plan& plan);

// What is left to search of such a model, of 40 choices by the hard plan.
solver::contested_problem draw_contested(unsigned seed);

// Shows values of all columns and their objective, once for all directions of the choices,
// counted from the rows alone by setting every flow and demand as high as its rows allow.
using value_visitor = std::function<void(const std::vector<double>& values, double objective)>;
void enumerate(const solver::model_record& record, const value_visitor& visit);

// The best objective over all directions.
double best_by_enumeration(const solver::model_record& record);
