#include "solver/support/test_models.hpp"

#include <algorithm>
#include <cmath>
#include <random>

#include "solver/support/random_reach.hpp"

using namespace solver;

constexpr double inf = infinity;

model_record record_of(const std::vector<column>& columns, const std::vector<row>& rows) {
    model_record record;
    for (const column& each : columns) {
        add_column(record, each);
    }
    for (const row& each : rows) {
        std::vector<std::pair<int, double>> terms;
        for (int c = 0; const double coefficient : each.coefficients) {
            terms.emplace_back(c++, coefficient);
        }
        std::erase_if(terms, [](const auto& term) { return term.second == 0.0; });
        add_row(record, each.lower, terms, each.upper);
    }
    return record;
}

int add_column(model_record& record, const column& added, const std::string& name) {
    record.column_objective.push_back(added.objective);
    record.column_lower.push_back(added.lower);
    record.column_upper.push_back(added.upper);
    record.column_integral.push_back(added.integral ? 1 : 0);
    record.column_priority.push_back(0.0);
    record.column_names.push_back(name);
    return record.num_columns() - 1;
}

void add_row(model_record& record, double lower, std::vector<std::pair<int, double>> terms, double upper) {
    std::sort(terms.begin(), terms.end());
    for (const auto& [column, value] : terms) {
        record.row_column.push_back(column);
        record.row_value.push_back(value);
    }
    record.row_start.push_back(record.row_column.size());
    record.row_lower.push_back(lower);
    record.row_upper.push_back(upper);
    record.row_names.push_back({});
}

void add_bound(model_record& record, int first, const std::vector<int>& others) {
    std::vector<std::pair<int, double>> terms{{first, 1.0}};
    for (const int other : others) {
        terms.emplace_back(other, -1.0);
    }
    add_row(record, -infinity, terms, 0.0);
}

// Proteins A, B, C in a row; the pairs (A, C) and (C, A) need opposite directions.
model_record opposite_pairs() {
    const column chosen{0};             // A>B, B>A, B>C, C>B
    const column flow{0, 0, 1, false};  // A>B, B>C from A; C>B, B>A from C
    const column pair{1, 0, 1, false};  // (A, C), (C, A)
    model_record record = record_of({chosen, chosen, chosen, chosen, flow, flow, flow, flow, pair, pair},
                                    {{-inf, {1, 1}, 1}, {-inf, {0, 0, 1, 1}, 1}});
    const std::pair<int, int> bounds[] = {{4, 0}, {5, 2}, {6, 3}, {7, 1}, {5, 4}, {7, 6}, {8, 5}, {9, 7}};
    for (const auto& [below, above] : bounds) {
        add_bound(record, below, {above});
    }
    return record;
}

// Twelve five-cycles whose neighbours exclude each other, beside a weight of 100,000.
model_record odd_cycles() {
    std::vector<column> columns(60, {1});
    std::vector<row> rows(60, {-inf, std::vector<double>(60, 0.0), 1});
    for (std::size_t c = 0; c < 60; ++c) {
        rows[c].coefficients[c] = rows[c].coefficients[c % 5 == 4 ? c - 4 : c + 1] = 1;
    }
    columns.push_back({100000});
    model_record record = record_of(columns, rows);
    record.settings.relative_gap = 0.0;
    return record;
}

std::vector<stated_model> stated_models() {
    const auto optimal = solve_status::optimal;
    const column x{8, 0, inf, true};
    const column y{5, 0, inf, true};
    const column real{1, 0, inf, false};
    return {
        {"Opposite pairs over one path: its first arc goes one way, so 1 of 2; two optima tie", opposite_pairs(),
         optimal, 1},
        {"max a+b+c, a+b<=1, b+c<=1, a+c<=1, binary: the halves give 1.5, but any two exclude each other",
         record_of({{1}, {1}, {1}}, {{-inf, {1, 1}, 1}, {-inf, {0, 1, 1}, 1}, {-inf, {1, 0, 1}, 1}}), optimal, 1},
        {"A five-cycle holds two that are no neighbours, so 24 of 60, not the 30 of the halves; a gap of 1e-4 of "
         "100,024 would hide ten of them",
         odd_cycles(), optimal, 100024},
        {"max 8x+5y, x+y<=6, 9x+5y<=45, whole: 41.25 at (3.75, 2.25), but whole points give at most 40, at (5, 0)",
         record_of({x, y}, {{-inf, {1, 1}, 6}, {-inf, {9, 5}, 45}}), optimal, 40},
        {"max x+y, x+2y<=4, 3x+y<=6: both rows are tight at (1.6, 1.2), a linear program",
         record_of({real, real}, {{-inf, {1, 2}, 4}, {-inf, {3, 1}, 6}}), optimal, 2.8},
        {"max x-y, x = 2y-1, -9 <= x+y <= 5, x free, y >= -1: x-y = y-1, and x+y = 3y-1 ends y at 2",
         record_of({{1, -inf, inf, false}, {-1, -1, inf, false}}, {{-1, {1, -2}, -1}, {-9, {1, 1}, 5}}), optimal, 1,
         true},
        {"max x over 0 <= x <= 1, no rows, and a column that counts for nothing",
         record_of({{1}, {0, 0, 1, false}}, {}), optimal, 1},
        {"A row without terms, 0 <= 1, binds nothing", record_of({{1}}, {{-inf, {}, 1}}), optimal, 1},
        {"a+b >= 3 over two binaries", record_of({{1}, {1}}, {{3, {1, 1}, inf}}), solve_status::infeasible},
        {"max x, x-y <= 1: both grow without end", record_of({real, {0, 0, inf, false}}, {{-inf, {1, -1}, 1}}),
         solve_status::unbounded},
    };
}

model_record named_reach_model(unsigned seed) {
    reach_plan plan = hard_plan(15 + static_cast<int>(seed % 10) * 5);
    if (seed % 10 == 1) {  // rows of several lines
        plan = {.num_choices = 60, .num_groups = 8, .nodes_per_group = 3, .arcs_per_node = 15};
    }
    model_record record = draw_reach_model(seed, plan);
    std::mt19937 random(seed);
    const bool odd = seed % 5 == 2;
    const unsigned longest = seed % 5 == 3 ? 2 : seed % 5 == 4 ? 60 : 9;
    const auto name = [&](std::string made) {
        const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.#()!,;'e";
        const std::string odd_ones = " -+*/:<>=[]^|\\\xe9\xce\xb2";
        for (auto length = 1 + random() % longest; length > 0; --length) {
            const std::string& from = odd && random() % 9 == 0 ? odd_ones : letters;
            made += from[random() % from.size()];
        }
        return made;
    };
    name_list columns;
    for (std::size_t c = 0; c < record.column_names.size(); ++c) {
        const std::string drawn(record.column_names[c].substr(0, 2));
        columns.push_back(!drawn.empty() ? name(drawn) : odd ? name("f") : "");
    }
    record.column_names = columns;
    name_list rows;
    for (const double upper : record.row_upper.plain()) {
        rows.push_back(upper == 0.0 || random() % 8 > 0 ? "" : longest == 9 ? "keep" : name("r"));
    }
    record.row_names = rows;
    record.objective_name = "obj";
    return record;
}

model_record long_solve() {
    std::mt19937 random(1);
    std::vector<column> columns(100, {0.0});
    std::vector<row> rows(10, {-infinity, {}, 25000.0});
    for (column& each : columns) {
        each.objective = static_cast<double>(random() % 500);
        for (row& knapsack : rows) {
            const double weight = 1.0 + static_cast<double>(random() % 1000);
            knapsack.coefficients.push_back(weight);
            each.objective += std::floor(weight / 10.0);
        }
    }
    model_record record = record_of(columns, rows);
    record.settings.relative_gap = 0.0;
    return record;
}
