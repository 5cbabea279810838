// Reading the orientation back from answers that a stand-in gives by name.
#include "report/compare.hpp"

#include "support/network.hpp"

namespace {

std::map<std::string, double> answer_values;
solver::model_record asked;

solver::solve_answer answer_by_name(const solver::model_record& record, const solver::solve_watch&) {
    asked = record;
    solver::solve_answer answer;
    answer.status = solver::solve_status::optimal;
    for (std::size_t c = 0; c < record.column_names.size(); ++c) {
        answer.values.push_back(answer_values[std::string(record.column_names[c])]);
    }
    return answer;
}

const std::string finished = "Solution status = Optimal\nSolution value  = 0\ncplex solver finished\n";
const std::string not_binary = "ERROR - Binary variable got a very unbinary value\n";

class comparison : public network_test {
 protected:
    void solve_with(const std::map<std::string, double>& values, int gap = 0) {
        answer_values = values;
        // Of a model that is plain reachability, a value would come back only where a
        // pair needs it. This row is of no such model.
        model.add(IloNumVar(env, 0.0, 1.0, IloNumVar::Float) <= 1);
        IloCplex cplex(model);
        cplex.use_back_end(answer_by_name);
        EXPECT_EQ(compare(cplex, model, gap), 0);
    }
};

}  // namespace

TEST_F(comparison, removes_the_reverse_of_a_chosen_test_arc) {
    load_letters({{"test", "A B 1\nB C 1\nC D 1\n"}, {"directed", "E F 1\n"}, {"undirected", "D E 1\n"}});
    solve_with({{"o_A_B", 1}, {"o_C_B", 1}, {"o_E_F", 1}, {"o_D_E", 1}});
    EXPECT_EQ(arcs(), (lines{"AB 0 1 1 1", "CB 0 2 0 1", "CD 0 1 1 1", "DC 0 2 0 1", "EF 1 0 0 1", "DE 0 0 0 1",
                             "ED 0 0 0 1"}));
    EXPECT_EQ(printed(), finished);
}

TEST_F(comparison, truncates_values_and_reports_those_that_are_not_binary) {
    load_letters({});
    for (const std::string ends : {"AB", "BA", "BC", "CB", "CD", "DC", "DE", "ED", "AD", "AF", "FA"}) {
        const auto arc = add_arc(protein_names_map[ends[0] - 'A'].protein, protein_names_map[ends[1] - 'A'].protein);
        // It takes any value: none of it is the solver's to refuse.
        boost::put(vars_map, arc, IloNumVar(env, -9.0, 9.0, IloNumVar::Float, ends.c_str()));
        model.add(boost::get(vars_map, arc) <= 9);
        boost::put(hidden_map, arc, ends == "FA" ? 0 : 1);  // which stays, though its reverse is chosen
    }
    solve_with({{"AB", 1}, {"BA", 1}, {"BC", 0.9999999}, {"CD", 1.9}, {"DE", 2}, {"ED", -1}, {"AD", 1}, {"AF", 1}});
    EXPECT_EQ(arcs(), (lines{"BC 0 1 0 0", "CB 0 1 0 0", "CD 0 1 0 0", "DE 0 1 0 0", "ED 0 1 0 0", "AD 0 1 0 0",
                             "AF 0 1 0 0", "FA 0 0 3 0"}));
    EXPECT_EQ(printed(), finished + not_binary + not_binary);
}

TEST_F(comparison, hands_settings_and_priorities_to_the_solver) {
    load_letters({{"directed", "A B 1\nB C 1\nC D 1\nD E 1\nE F 1\n"}});
    for (int counter = -1; const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        boost::put(shortest_paths_counter_map, arc, counter++);
        boost::put(test_map, arc, counter == 4 ? 22 : 0);
    }
    solve_with({}, 5);
    EXPECT_EQ(asked.column_priority, (std::vector<double>{0, 0, 1, 2}));  // the last one of solve_with
    EXPECT_EQ(asked.settings.root_algorithm, 3);
    EXPECT_EQ(asked.settings.variable_selection, 3);
    EXPECT_EQ(asked.settings.work_memory, 1280.0);
    EXPECT_EQ(asked.settings.dive_type, 3);
    EXPECT_EQ(asked.settings.relative_gap, 0.05);
}
