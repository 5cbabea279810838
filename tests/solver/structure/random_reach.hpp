// Models of the reachability shape, drawn at random, and plain ways to solve them.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "solver/model_record.hpp"
#include "solver/structure/contested_problem.hpp"

struct reach_plan {
    int num_choices = 6;
    int num_groups = 3;  // networks of one root each
    int nodes_per_group = 5;
    int arcs_per_node = 2;
    double lone_share = 0.2;    // choices with one gate
    double demand_share = 0.6;  // nodes with a demand
    int largest_weight = 1;
    bool swapped = false;  // the ends of every choice named the other way round
};

// Rows in the order of the program's own models. A group uses a gate at most once, as
// a network has an arc.
solver::model_record draw_reach_model(unsigned seed, const reach_plan& plan);

// Appends a row of coefficient 1 for the first column and -1 for the others, <= upper.
void add_row(solver::model_record& record, int first, const std::vector<int>& others, double upper,
             double others_value);
int add_column(solver::model_record& record, const std::string& name, bool integral, double weight);

// The best objective over all directions, counted from the rows alone by setting every
// flow and demand as high as its rows allow.
double best_by_enumeration(const solver::model_record& record);
