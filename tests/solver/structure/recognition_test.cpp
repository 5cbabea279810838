// What is recognised as reachability, and what is not.
#include <functional>

#include <gtest/gtest.h>

#include "solver/back_ends/back_ends.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/structure/reach_structure.hpp"
#include "solver/support/test_models.hpp"

using namespace solver;

TEST(recognition, refuses_models_just_off_the_shape_and_solves_them_all_the_same) {
    // x and x' opposite, z alone; root -x-> a -z-> b, and root -x'-> c; demands at b and c.
    constexpr column gate{0};
    constexpr column flow{0, 0, 1, false};
    constexpr column pair{1, 0, 1, false};
    const auto draw = [&] {
        model_record record = record_of({gate, gate, gate, flow, flow, flow, {3, 0, 1, false}, {2, 0, 1, false}},
                                        {{-infinity, {1, 1}, 1}, {-infinity, {0, 0, 1}, 1}});
        const std::pair<int, int> bounds[] = {{3, 0}, {4, 2}, {5, 1}, {4, 3}, {6, 4}, {7, 5}};
        for (const auto& [one, other] : bounds) {
            add_bound(record, one, {other});
        }
        return record;
    };
    const auto pack = [](model_record& to, int one, int other, double upper) {
        add_row(to, -infinity, {{one, 1}, {other, 1}}, upper);
    };
    const auto bound = [](model_record& to, int one, int other) { add_bound(to, one, {other}); };
    using m = model_record&;
    struct {
        const char* name;
        double optimum;
        std::function<void(m)> change;
    } const cases[] = {
        {"an extra row", 2, [&](m r) { pack(r, 0, 2, 0.5); }},
        {"a gate in two packing rows", 3, [&](m r) { pack(r, 1, 2, 1); }},
        {"a gate in no packing row", 3, [&](m r) { bound(r, add_column(r, flow), add_column(r, gate)); }},
        {"a negative coefficient", 5, [](m r) { r.row_value.set(0, -1); }},
        {"a coefficient of 2", 3, [](m r) { r.row_value.set(1, 2); }},
        {"a negative weight", 3, [](m r) { r.column_objective.set(7, -1); }},
        {"a fractional weight", 3, [](m r) { r.column_objective.set(7, 2.5); }},
        {"a weight on a gate", 4, [](m r) { r.column_objective.set(0, 1); }},
        {"a weight on a flow", 4, [](m r) { r.column_objective.set(3, 1); }},
        {"another upper bound", 6, [](m r) { r.column_upper.set(6, 2), r.row_value.set(r.row_start[6], -2); }},
        {"another lower bound", 2, [](m r) { r.column_lower.set(1, 1); }},
        {"an integral flow", 3, [](m r) { r.column_integral[4] = 1; }},
        {"an equality", 3, [](m r) { r.row_lower.set(0, 1); }},
        {"a second capacity", 3, [&](m r) { bound(r, 4, 2); }},
        {"a second propagation", 2, [&](m r) { bound(r, 4, 5); }},
        {"a second cover", 2, [&](m r) { bound(r, 6, 5); }},
        {"overlapping sums", 3,
         [&](m r) {
             add_bound(r, add_column(r, flow), {3, 5});
         }},
        {"a column in no row", 4, [&](m r) { add_column(r, pair); }},
        {"minimised", 0, [](m r) { r.maximize = false; }},
        // The flow into b feeds the arc into a: a chain that begins nowhere.
        {"a cycle of flows", 3, [&](m r) { bound(r, 3, 4); }},
    };
    for (const auto& [name, optimum, change] : cases) {
        SCOPED_TRACE(name);
        model_record record = draw();
        change(record);
        EXPECT_FALSE(find_reach_structure(record));
        const solve_answer answer = solve_record(record, search_with_highs, {});
        EXPECT_EQ(answer.status, solve_status::optimal) << answer.reason;
        EXPECT_EQ(answer.objective, optimum);
    }
}
