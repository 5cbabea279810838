#include "solver/reduce/split.hpp"

#include <algorithm>
#include <utility>

#include "solver/reduce/settle.hpp"
#include "solver/structure/index.hpp"

namespace solver {

std::vector<contested_problem> split(const contested_problem& problem) {
    std::vector<int> parent(problem.choices.size());
    for (std::size_t c = 0; c < parent.size(); ++c) {
        parent[c] = static_cast<int>(c);
    }
    const auto part_of = [&parent](int choice) {
        while (parent[at(choice)] != choice) {
            choice = parent[at(choice)] = parent[at(parent[at(choice)])];
        }
        return choice;
    };
    const auto first_gate = [](const pair_net& pair) {
        return std::find_if(pair.arcs.begin(), pair.arcs.end(),
                            [](const net_arc& arc) { return arc.gate != open_gate; })
            ->gate;
    };
    for (const pair_net& pair : problem.pairs) {
        for (const net_arc& arc : pair.arcs) {
            if (arc.gate != open_gate) {
                const int one = part_of(arc.gate / 2);
                const int other = part_of(first_gate(pair) / 2);
                parent[at(std::max(one, other))] = std::min(one, other);
            }
        }
    }
    std::vector<contested_problem> parts;
    std::vector<int> number(problem.choices.size(), -1);
    for (int c = 0; c < problem.num_choices(); ++c) {
        if (part_of(c) == c) {
            number[at(c)] = static_cast<int>(parts.size());
            parts.emplace_back();
        }
    }
    if (parts.size() == 1) {
        parts.front() = problem;
        for (int c = 0; c < problem.num_choices(); ++c) {
            parts.front().choices[at(c)] = c;
        }
        return parts;
    }
    // A part is the problem with every other part's pairs taken out, which closes their gates.
    for (std::size_t part = 0; part < parts.size(); ++part) {
        contested_problem only;
        only.choices = problem.choices;
        std::vector<int> new_pair(problem.pairs.size(), -1);
        for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
            if (number[at(part_of(first_gate(problem.pairs[p]) / 2))] == static_cast<int>(part)) {
                new_pair[p] = static_cast<int>(only.pairs.size());
                only.pairs.push_back(problem.pairs[p]);
            }
        }
        only.shared.arcs = problem.shared.arcs;
        for (const shared_network::node& node : problem.shared.nodes) {
            only.shared.nodes.push_back({node.pair >= 0 ? new_pair[at(node.pair)] : -1, node.weight});
        }
        std::vector<gate_state> gates(2 * problem.choices.size(), gate_state::contested);
        parts[part] = settle(std::move(only), std::move(gates), {false, false, false}).contested;
    }
    return parts;
}

}  // namespace solver
