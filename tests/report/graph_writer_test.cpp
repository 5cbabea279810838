#include "report/graph_writer.hpp"

#include <boost/graph/graphviz.hpp>

#include "support/network.hpp"

using graph_writer = network_test;

namespace {

std::string drawing() {
    std::ostringstream out;
    write_network(out);
    return out.str();
}

}  // namespace

TEST_F(graph_writer, draws_arcs_in_order_and_test_pairs_blue) {
    EXPECT_EQ(drawing(), "digraph G {\n}\n");
    load_letters({{"test", "C A 1\n"}, {"directed", "A B 1\n"}, {"undirected", "C B 1\n"}});
    EXPECT_EQ(drawing(),
              "digraph G {\n"
              "0[label=A];\n1[label=B];\n2[label=C];\n3[label=D];\n4[label=E];\n5[label=F];\n6[label=\"\"];\n"
              "2->0 [color=blue];\n0->2 [color=blue];\n0->1 ;\n2->1 ;\n1->2 ;\n"
              "}\n");
}

TEST_F(graph_writer, writes_what_the_library_writes_for_any_name) {
    load_letters({{"names.txt", "ABC1\nYHR132W-A\na b\nq\"x\n9lives\n-12\n.5\n_\n\\\n\t\r\nh\xc3\xa9\xff\nnode\n"},
                  {"directed", "ABC1 9lives 1\n"}});
    std::ostringstream expected;
    boost::write_graphviz(expected, bi_graph, boost::make_label_writer(names_map), epw(solution_graph));
    EXPECT_EQ(drawing(), expected.str());
    for (const char* label : {"=ABC1]", "=\"YHR132W-A\"]", "=\"a b\"]", "=\"q\\\"x\"]", "=\"9lives\"]", "=_]"}) {
        EXPECT_NE(drawing().find(label), std::string::npos) << label;
    }
}
