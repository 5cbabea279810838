#include "report/graph_writer.hpp"

#include <boost/graph/graphviz.hpp>

#include "support/network.hpp"

using graph_writer = network_test;

TEST_F(graph_writer, writes_what_the_library_writes_for_any_name) {
    load_letters({{"names.txt", "ABC1\nYHR132W-A\na b\nq\"x\n9lives\n-12\n.5\n_\n\\\n\t\r\nh\xc3\xa9\xff\nnode\n"},
                  {"directed", "ABC1 9lives 1\n"}});
    std::ostringstream drawn;
    write_network(drawn);
    std::ostringstream expected;
    boost::write_graphviz(expected, bi_graph, boost::make_label_writer(names_map), epw(solution_graph));
    EXPECT_EQ(drawn.str(), expected.str());
    for (const char* label : {"=ABC1]", "=\"YHR132W-A\"]", "=\"a b\"]", "=\"q\\\"x\"]", "=\"9lives\"]", "=_]"}) {
        EXPECT_NE(drawn.str().find(label), std::string::npos) << label;
    }
}
