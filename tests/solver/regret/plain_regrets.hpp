// Regrets and prices the plain way: the model is solved anew for every gate and demand.
#pragma once

#include "solver/regret/find_regrets.hpp"

// Of an answer that is proven best. Says nothing about what lost demands stand against.
solver::regret_report plain_regrets(const solver::model_record& record, const solver::solve_answer& answer);
