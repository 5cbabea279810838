#include "solver/reduce/split.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

#include "solver/reduce/settle.hpp"
#include "solver/structure/index.hpp"

namespace solver {

namespace {

int first_gate(const pair_net& pair) {
    const auto arc =
        std::find_if(pair.arcs.begin(), pair.arcs.end(), [](const net_arc& one) { return one.gate != open_gate; });
    return arc->gate;
}

// By choice: its part, numbered by their first choices.
std::vector<int> part_of_choices(const contested_problem& problem) {
    std::vector<int> parent(problem.choices.size());
    std::iota(parent.begin(), parent.end(), 0);
    const auto first_of_part = [&parent](int choice) {
        while (parent[at(choice)] != choice) {
            choice = parent[at(choice)] = parent[at(parent[at(choice)])];
        }
        return choice;
    };
    for (const pair_net& pair : problem.pairs) {
        const int first = first_gate(pair) / 2;
        for (const net_arc& arc : pair.arcs) {
            if (arc.gate != open_gate) {
                const int one = first_of_part(arc.gate / 2);
                const int other = first_of_part(first);
                parent[at(std::max(one, other))] = std::min(one, other);
            }
        }
    }
    std::vector<int> part(problem.choices.size());
    int count = 0;
    for (int c = 0; c < problem.num_choices(); ++c) {
        part[at(c)] = first_of_part(c) == c ? count++ : part[at(first_of_part(c))];
    }
    return part;
}

int count_of(const std::vector<int>& part_of) {
    return part_of.empty() ? 0 : *std::max_element(part_of.begin(), part_of.end()) + 1;
}

}  // namespace

int count_parts(const contested_problem& problem) {
    return count_of(part_of_choices(problem));
}

std::vector<contested_problem> split(const contested_problem& problem, const solve_watch& watch) {
    const std::vector<int> part_of = part_of_choices(problem);
    std::vector<contested_problem> parts(at(count_of(part_of)));
    if (parts.size() == 1) {
        parts.front() = problem;
        std::iota(parts.front().choices.begin(), parts.front().choices.end(), 0);
        return parts;
    }
    // A part is the problem with every other part's pairs taken out, which closes their gates.
    for (std::size_t part = 0; part < parts.size(); ++part) {
        std::vector<char> kept(problem.pairs.size());
        for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
            kept[p] = part_of[at(first_gate(problem.pairs[p]) / 2)] == static_cast<int>(part) ? 1 : 0;
        }
        std::vector<gate_state> gates(2 * problem.choices.size(), gate_state::contested);
        std::optional<settled_problem> settled =
            settle(with_pairs(problem, kept), std::move(gates), {false, false, false}, watch);
        if (!settled) {
            return {};
        }
        parts[part] = std::move(settled->contested);
    }
    return parts;
}

}  // namespace solver
