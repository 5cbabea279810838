// Of many optima the program takes one that does not depend on which end of an
// interaction its line names first: in "test" that is the answer that it is asked for.
#include <regex>
#include <set>
#include <sstream>

#include "support/program.hpp"

namespace {

class ties_test : public program_test {
 protected:
    // Vertices are numbered by "names.txt", which no test changes.
    std::multiset<std::string> solution_arcs() const {
        EXPECT_EQ(run_program({"in/", "out/"}).exit_status, 0);
        std::istringstream drawing(read("out/solution_graph.txt"));
        std::multiset<std::string> arcs;
        for (std::string line; std::getline(drawing, line);) {
            arcs.insert(line.find("->") != std::string::npos ? line : "");
        }
        return arcs;
    }

    void expect_no_difference() const {
        const std::multiset<std::string> arcs = solution_arcs();
        EXPECT_GT(arcs.size() - arcs.count(""), 100u);
        for (const std::string file : {"in/test", "in/undirected"}) {
            write(file, std::regex_replace(read(file), std::regex("(\\S+) (\\S+)( .*\n)"), "$2 $1$3"));
            EXPECT_EQ(solution_arcs(), arcs) << file;
        }
    }
};

}  // namespace

TEST_F(ties_test, do_not_depend_on_the_order_of_names_in_a_line) {
    write("out/keep", "");
    std::filesystem::copy(EXAMPLE_FOLDER, folder / "in");
    expect_no_difference();
    // Few pairs leave much open, many at odds leave much to search.
    const std::vector<std::string> shapes[] = {
        {"pairs=100", "pairs_per_source=3", "noise=0.3"},
        {"pairs=300", "noise=0.4", "max_distance=6"},
        {"pairs=250", "noise=0.3", "preferential=0"},
    };
    for (std::vector<std::string> shape : shapes) {
        for (const std::string seed : {"seed=1", "seed=2", "seed=3"}) {
            SCOPED_TRACE(shape.front() + " " + seed);
            std::vector<std::string> arguments = {"in/", "proteins=300", "directed=50", "undirected=300", "test=250",
                                                  seed};
            arguments.insert(arguments.end(), shape.begin(), shape.end());
            ASSERT_EQ(run_program(arguments, NETORIENT_GENERATE).exit_status, 0);
            expect_no_difference();
        }
    }
}
