// Arcs are found as the graph itself would find them, however many come and go.
#include <random>

#include <gtest/gtest.h>

#include "model/network_graph.hpp"

TEST(find_arc, agrees_with_the_graph_as_arcs_come_and_go) {
    reset_run_state();
    std::vector<vertex_descriptor> proteins;
    for (int i = 0; i < 60; ++i) {
        proteins.push_back(add_protein(std::to_string(i)));
    }
    std::mt19937 engine(1);
    const auto any_protein = [&] { return proteins[engine() % proteins.size()]; };
    // Mostly arcs that come, past several sizes of the table, and then mostly arcs that go.
    for (const unsigned arcs_of_ten : {9U, 6U, 1U}) {
        for (int change = 0; change < 3000; ++change) {
            const vertex_descriptor tail = any_protein();
            const vertex_descriptor head = any_protein();
            if (engine() % 10 < arcs_of_ten) {
                add_arc(tail, head);
            } else if (const auto [arc, exists] = find_arc(tail, head); exists) {
                remove_arc(arc);
            }
        }
        for (const vertex_descriptor tail : proteins) {
            for (const vertex_descriptor head : proteins) {
                const auto expected = boost::edge(tail, head, bi_graph);
                const auto found = find_arc(tail, head);
                ASSERT_EQ(found.second, expected.second);
                ASSERT_TRUE(!found.second || found.first == expected.first) << "not the first of parallel arcs";
            }
        }
    }
}
