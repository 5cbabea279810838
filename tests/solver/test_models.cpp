#include "test_models.hpp"

#include <cmath>
#include <random>
#include <string>

solver::model_record record_of(const std::vector<column>& columns, const std::vector<row>& rows) {
    solver::model_record record;
    for (const column& each : columns) {
        record.column_objective.push_back(each.objective);
        record.column_lower.push_back(each.lower);
        record.column_upper.push_back(each.upper);
        record.column_integral.push_back(each.integral ? 1 : 0);
    }
    record.column_priority.resize(columns.size());
    record.column_names = std::vector<std::string>(columns.size());
    for (const row& each : rows) {
        for (std::size_t c = 0; c < each.coefficients.size(); ++c) {
            if (each.coefficients[c] != 0.0) {
                record.row_column.push_back(static_cast<int>(c));
                record.row_value.push_back(each.coefficients[c]);
            }
        }
        record.row_start.push_back(record.row_column.size());
        record.row_lower.push_back(each.lower);
        record.row_upper.push_back(each.upper);
    }
    record.row_names = std::vector<std::string>(rows.size());
    return record;
}

solver::model_record random_record(unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const bool odd = seed % 5 == 2;
    const int longest = seed % 5 == 3 ? 2 : seed % 5 == 4 ? 60 : 9;
    const auto name = [&](const char* prefix) {
        static const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.#()!,;'e";
        static const std::string odd_ones = " -+*/:<>=[]^|\\\xe9\xce\xb2";
        std::string made = prefix;
        for (int length = 1 + below(longest); length > 0; --length) {
            const std::string& from = odd && below(9) == 0 ? odd_ones : letters;
            made += from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
        }
        return made;
    };
    const IloEnv env;
    const IloModel model(env);
    const IloObjective objective(env, 0.0, IloObjective::Maximize, "obj");
    const int size = 3 + below(seed % 10 == 0 ? 120 : 20);
    std::vector<IloNumVar> chosen;
    std::vector<IloNumVar> flows;
    const auto some_flows = [&](int count) {
        IloExpr sum(env);
        for (; count > 0; --count) {
            sum += flows[static_cast<std::size_t>(below(static_cast<int>(flows.size())))];
        }
        return sum;
    };
    for (int i = 0; i < 2 * size; ++i) {
        chosen.emplace_back(env, 0.0, 1.0, IloNumVar::Bool, name("o_").c_str());
        if (i % 2 == 1) {
            const IloConstraint one_way = chosen.rbegin()[1] + chosen.back() <= 1.0;
            one_way.setName(below(8) > 0 ? nullptr : longest == 9 ? "keep" : name("r").c_str());
            model.add(one_way);
        }
    }
    for (int i = 0; i < 2 * size; ++i) {
        const IloNumVar flow(env, 0.0, 1.0, IloNumVar::Float, odd ? name("f").c_str() : nullptr);
        model.add(IloExpr(flow) <= IloExpr(chosen[static_cast<std::size_t>(below(2 * size))]));
        if (i > 2 && below(3) > 0) {
            model.add(IloExpr(flow) <= some_flows(1 + below(below(6) == 0 ? i : 3)));
        }
        flows.push_back(flow);
    }
    for (int i = 0; i < size; ++i) {
        const IloNumVar pair(objective(), 0.0, 1.0, IloNumVar::Float, name("s_").c_str());
        model.add(IloExpr(pair) <= some_flows(1 + below(3)));
    }
    model.add(objective);
    return IloCplex(model).record();
}

solver::model_record long_solve() {
    std::mt19937 random(1);
    std::vector<column> columns(100, {0.0});
    std::vector<row> rows(10, {-solver::infinity, {}, 0.0});
    for (column& each : columns) {
        each.objective = static_cast<double>(random() % 500);
        for (row& knapsack : rows) {
            knapsack.coefficients.push_back(1.0 + static_cast<double>(random() % 1000));
            knapsack.upper += knapsack.coefficients.back() / 2.0;
            each.objective += std::floor(knapsack.coefficients.back() / 10.0);
        }
    }
    for (row& knapsack : rows) {
        knapsack.upper = std::floor(knapsack.upper);
    }
    solver::model_record record = record_of(columns, rows);
    record.settings.relative_gap = 0.0;
    return record;
}
