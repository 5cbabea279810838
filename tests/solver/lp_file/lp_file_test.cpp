// The LP file: a few to the letter, and many against the file that CPLEX writes.
#include <iostream>
#include <sstream>

#include "driver/run.hpp"
#include "input/read_data.hpp"
#include "orientation/prepare_ilp.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/cplex/cplex_problem.hpp"
#include "solver/lp_file/lp_file.hpp"
#include "solver/lp_file/lp_names.hpp"
#include "solver/support/back_ends.hpp"
#include "solver/support/test_models.hpp"

using namespace solver;

namespace {

// From the line "Maximize" or "Minimize" on.
std::string our_text(const model_record& record) {
    std::ostringstream text;
    write_lp(record, text);
    return text.str().substr(text.str().find("\nM"));
}

// What CPLEX itself writes for the same rows, columns and names.
std::string cplex_text(const model_record& record) {
    const cplex::loaded_problem loaded(test_cplex_library, record);
    const auto set_names = [&](const char* call, const name_list& names) {
        for (int i = 0; i < static_cast<int>(names.size()); ++i) {
            const std::string name(names[static_cast<std::size_t>(i)]);
            const char* text = name.c_str();
            loaded.require(name.empty() ? 0 : call_cplex(call, loaded.env, loaded.lp, 1, &i, &text));
        }
    };
    set_names("CPXchgcolname", record.column_names);
    set_names("CPXchgrowname", record.row_names);
    if (!record.objective_name.empty()) {
        loaded.require(call_cplex("CPXcopyobjname", loaded.env, loaded.lp, record.objective_name.c_str()));
    }
    const std::string text = written_by(
        [&](const char* path) { loaded.require(call_cplex("CPXwriteprob", loaded.env, loaded.lp, path, "LP")); });
    return text.substr(text.find("\nM"));
}

// Each row over one column less than the last, and names for all.
model_record named(const std::vector<std::string>& column_names, const std::vector<std::string>& row_names) {
    model_record record;
    for (std::size_t c = 0; c < column_names.size(); ++c) {
        add_column(record, {c % 3 == 1 ? 1.0 : 0.0, 0, 1, c % 2 == 0}, column_names[c]);
    }
    for (std::size_t r = 0; r < row_names.size(); ++r) {
        std::vector<std::pair<int, double>> terms;
        for (std::size_t c = r; c < column_names.size(); ++c) {
            terms.emplace_back(static_cast<int>(c), r % 2 == 0 ? 1 : -1);
        }
        add_row(record, -infinity, terms, 1);
    }
    record.row_names = row_names;
    record.objective_name = "obj";
    return record;
}

std::vector<model_record> cases_made_by_hand() {
    model_record lettered = named({"o_A_B", "o_B_A", "s_A_B", "", std::string(35, 'l'), ""}, {"keep", "keep", ""});
    lettered.row_value.set(1, 2);
    lettered.column_upper.set(lettered.column_upper.size() - 1, infinity);
    std::vector<model_record> cases{
        lettered,
        named({"a", "b", "c"}, {"keep", ""}),               // nothing to tag
        named({"a", "b", "c"}, {"keep", "", "keep"}),       // rows repeat
        named({"o_A_B", "o_B_A", ""}, {"c2", ""}),          // a default name taken
        named({"x3", "", "x2"}, {"c9", ""}),                // others' default names, and x2 twice
        named({"o_A-1_B", "o_B_A-1", ""}, {"", ""}),        // an illegal name
        named({"a b\\c*d+e-f/g:h<i=j>k[l]m^n|o"}, {""}),    // every illegal character
        named({"1a", ".b", "e3", "Eve", "-f", "g"}, {""}),  // beginnings of numbers
        named({"!\"#$%&(),.;?@_{}~'`", "\xe9"}, {""}),      // legal ones
        named({"caf\xc3\xa9", "o_\xce\xb2-cat"}, {""}),     // bytes beyond ASCII
        named({"a", "b"}, {std::string(29, 'r'), ""}),      // labels up to and
        named({"a", "b"}, {std::string(31, 'r'), ""}),      // beyond the widest indent
        named({std::string(76, 'a'), std::string(77, 'b'), std::string(200, 'c')}, {"", ""}),
        named({"a"}, {"", "no terms"}),
        named({"a", "b", "c"}, {}),
        named({}, {}),
    };
    cases.back().objective_name.clear();
    for (std::size_t length = 1; length <= 9; ++length) {  // lines of 79 characters, of one less and of one more
        std::vector<std::string> names;
        for (int c = 0; c < 90; ++c) {
            names.push_back(std::string(length, 'n') + std::to_string(c));
        }
        cases.push_back(named(names, {"", "row", ""}));
    }
    const double inf = infinity;
    const column all_kinds[] = {{0, 0, 1, false},
                                {0.5, -inf, inf, false},
                                {-1, -inf, 4, false},
                                {1e16, 2, inf, false},
                                {0, 0, inf, false},
                                {0, -3, 0.25, false},
                                {0, 1, 1},
                                {0, -1, 7}};
    cases.push_back(
        record_of({std::begin(all_kinds), std::end(all_kinds)},
                  {{-inf, {123456.125, -1e7, 1}, -7}, {2, {0, 0, 1, 1, 2.5, -1, 1, 1}, inf}, {-3.5, {0, 1}, -3.5}}));
    cases.back().objective_constant = -7.5;
    cases.back().maximize = false;
    return cases;
}

// The model that the program's own phases make of the example.
model_record example_model() {
    reset_run_state();
    const IloModel model(env);
    name_objective();
    read_data(files_below(SOURCE_FOLDER "/example/"), model);
    std::vector<vertex_descriptor> copies;
    prepare_ilp(model, true, copy_network(copies));
    return IloCplex(model).record();
}

std::vector<std::string> all_lp_names(const name_list& names) {
    const lp_names legal(names, 'x');
    std::vector<std::string> all;
    for (std::size_t i = 0; i < legal.size(); ++i) {
        all.emplace_back(legal[i]);
    }
    return all;
}

}  // namespace

TEST(lp_file, is_written_to_the_letter) {
    EXPECT_EQ(our_text(cases_made_by_hand().front()), R"(
Maximize
 obj: o_B_A + lllllllllllllllllllllllllllllllllll
Subject To
 keep#0: o_A_B + 2 o_B_A + s_A_B + x4 + lllllllllllllllllllllllllllllllllll
         + x6 <= 1
 keep#1: - o_B_A - s_A_B - x4 - lllllllllllllllllllllllllllllllllll - x6 <= 1
 c3#2:   s_A_B + x4 + lllllllllllllllllllllllllllllllllll + x6 <= 1
Bounds
 0 <= o_A_B <= 1
 0 <= o_B_A <= 1
 0 <= s_A_B <= 1
 0 <= x4 <= 1
 0 <= lllllllllllllllllllllllllllllllllll <= 1
Binaries
 o_A_B  s_A_B  lllllllllllllllllllllllllllllllllll 
End
)");
}

TEST(lp_file, tags_and_replaces_names) {
    using names = std::vector<std::string>;
    EXPECT_EQ(all_lp_names(names{"a", "", "b"}), (names{"a", "x2", "b"}));
    EXPECT_EQ(all_lp_names(names{"a", "", "a"}), (names{"a#0", "x2#1", "a#2"}));
    EXPECT_EQ(all_lp_names(names{"x2", ""}), (names{"x2#0", "x2#1"}));
    EXPECT_EQ(all_lp_names(names{"x3", "x01", "x"}), (names{"x3", "x01", "x"}));
    EXPECT_EQ(all_lp_names(names{"a\tb\x7f", "e1", "-"}), (names{"a_b_#0", "_e1#1", "_m#2"}));
}

TEST(lp_file, equals_the_one_that_cplex_writes) {
    SKIP_WITHOUT_CPLEX();
    std::vector<model_record> records = cases_made_by_hand();
    for (const stated_model& model : stated_models()) {
        if (!model.has_range) {  // no operation makes a row of two sides
            records.push_back(model.record);
        }
    }
    records.push_back(example_model());
    EXPECT_GT(records.back().num_rows(), 100);
    EXPECT_EQ(solve_record(records.back(), solve_with_test_cplex, {}).objective,
              solve_record(records.back(), search_with_highs, {}).objective);
    for (unsigned seed = 0; seed < 100; ++seed) {
        records.push_back(named_reach_model(seed));
    }
    for (std::size_t i = 0; i < records.size(); ++i) {
        ASSERT_EQ(our_text(records[i]), cplex_text(records[i])) << "case " << i;
    }
    std::cout << "compared " << records.size() << " LP files with CPLEX's own, byte for byte\n";
}
