#include "report/compare.hpp"

#include <iostream>
#include <iterator>

#include "process/interruption.hpp"
#include "report/progress_line.hpp"

namespace {

constexpr int lost_direction = 3;     // edge_test of an arc whose reverse was chosen
constexpr int without_priority = 22;  // edge_test of an arc to leave out; no reader sets it

void set_parameters(IloCplex cplex, int gap) {
    cplex.setParam(IloCplex::RootAlg, IloCplex::Network);
    cplex.setParam(IloCplex::VarSel, 3);
    cplex.setParam(IloCplex::WorkMem, 1280.0);
    cplex.setParam(IloCplex::DiveType, 3);
    cplex.setParam(IloCplex::EpGap, gap / 100.0);
}

// What many shortest paths share is decided first.
void set_priorities(IloCplex cplex) {
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        const int counter = boost::get(shortest_paths_counter_map, arc);
        if (counter > 0 && boost::get(test_map, arc) != without_priority) {
            cplex.setPriority(boost::get(vars_map, arc), counter);
        }
    }
}

bool solve_watched(IloCplex cplex) {
    progress_line line;
    solver::solve_watch outer;
    outer = cplex.set_watch({[&] {
                                 line.renew();
                                 return outer.stop_requested();
                             },
                             [&](const solver::solve_progress& progress) {
                                 line.set(progress);
                                 outer.report(progress);
                             }});
    const bool solved = cplex.solve();
    cplex.set_watch(outer);
    return solved;
}

void solve_or_throw(IloCplex cplex) {
    if (solve_watched(cplex)) {
        hold_answer();
        return;
    }
    if (!cplex.failure_reason().empty()) {
        std::cout << cplex.failure_reason() << '\n';
    }
    // Nothing after the throw would flush what was printed.
    std::cout << "Failed to optimize LP" << std::endl;
    throw -1;
}

void mark_losing_arcs(IloCplex cplex) {
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        if (boost::get(hidden_map, arc) == 0) {
            continue;
        }
        const int val = static_cast<int>(cplex.getValue(boost::get(vars_map, arc)));
        if (val == 1) {
            const auto [opposite_arc, exists] = find_arc(boost::target(arc, bi_graph), boost::source(arc, bi_graph));
            if (exists) {
                boost::put(test_map, opposite_arc, lost_direction);
            }
        } else if (val != 0) {
            std::cout << "ERROR - Binary variable got a very unbinary value" << std::endl;
        }
    }
}

// Only hidden arcs go, also where the mark stands on another.
void remove_losing_arcs() {
    auto [curr_edge, edge_end] = boost::edges(bi_graph);
    while (curr_edge != edge_end) {
        const auto edge_next = std::next(curr_edge);
        if (boost::get(test_map, *curr_edge) == lost_direction && boost::get(hidden_map, *curr_edge) != 0) {
            remove_arc(*curr_edge);
        }
        curr_edge = edge_next;
    }
}

}  // namespace

int compare(IloCplex cplex, IloModel, int gap) {
    set_parameters(cplex, gap);
    set_priorities(cplex);
    solve_or_throw(cplex);
    std::cout << "Solution status = " << cplex.getStatus() << std::endl;
    std::cout << "Solution value  = " << cplex.getObjValue() << std::endl;
    std::cout << "cplex solver finished" << std::endl;
    mark_losing_arcs(cplex);
    remove_losing_arcs();
    return 0;
}
