#include "solver/reduce/settle.hpp"

#include <algorithm>
#include <unordered_map>

#include "solver/reduce/simplify_net.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

class settler {
 public:
    settler(contested_problem& problem, std::vector<gate_state>& gates, const settle_steps& steps,
            const solve_watch& watch)
        : problem_(problem), gates_(gates), steps_(steps), watch_(watch) {}

    std::optional<settled_problem> run() {
        uses_.assign(gates_.size(), 0);
        pairs_of_choice_.assign(gates_.size() / 2, {});
        for (std::size_t p = 0; p < problem_.pairs.size(); ++p) {
            if (watch_.stop_requested()) {
                return std::nullopt;
            }
            simplify(p);
            for (const net_arc& arc : problem_.pairs[p].arcs) {
                if (arc.gate != open_gate) {
                    pairs_of_choice_[at(arc.gate / 2)].push_back(static_cast<int>(p));
                }
            }
        }
        while (decide()) {
            for (const int pair : touched_) {
                if (watch_.stop_requested()) {
                    return std::nullopt;
                }
                count_uses(problem_.pairs[at(pair)], -1);
                simplify(at(pair));
            }
        }
        return finish();
    }

 private:
    // Empties the net when its pair's fate is known.
    void simplify(std::size_t pair) {
        pair_net& net = problem_.pairs[pair];
        if (net.arcs.empty()) {
            return;
        }
        const net_fate fate = simplify_net(net, gates_, steps_.contract_networks);
        if (fate == net_fate::satisfied) {
            satisfied_ += net.weight;
        }
        if (fate != net_fate::undecided) {
            net.arcs.clear();
        }
        count_uses(net, 1);
    }

    void count_uses(const pair_net& net, int by) {
        for (const net_arc& arc : net.arcs) {
            if (arc.gate != open_gate) {
                uses_[at(arc.gate)] += by;
            }
        }
    }

    // One round of decisions; gathers the pairs that they touch.
    bool decide() {
        touched_.clear();
        if (steps_.force_choices) {
            force_choices();
        }
        if (steps_.take_majorities) {
            take_majorities();
        }
        std::sort(touched_.begin(), touched_.end());
        touched_.erase(std::unique(touched_.begin(), touched_.end()), touched_.end());
        return !touched_.empty();
    }

    void take(int gate) {
        open_and_close(gates_, gate);
        const auto& pairs = pairs_of_choice_[at(gate / 2)];
        touched_.insert(touched_.end(), pairs.begin(), pairs.end());
    }

    void force_choices() {
        for (int gate = 0; gate < static_cast<int>(gates_.size()); ++gate) {
            if (gates_[at(gate)] == gate_state::contested && uses_[at(gate)] > 0 && uses_[at(gate ^ 1)] == 0) {
                take(gate);
            }
        }
    }

    void take_majorities() {
        std::vector<long> sole(gates_.size(), 0);  // weight of the pairs that this one arc satisfies
        std::vector<long> any(gates_.size(), 0);   // weight of the pairs that can use it
        std::vector<const pair_net*> last(gates_.size(), nullptr);
        for (const pair_net& net : problem_.pairs) {
            for (const net_arc& arc : net.arcs) {
                if (arc.gate != open_gate && last[at(arc.gate)] != &net) {
                    last[at(arc.gate)] = &net;
                    any[at(arc.gate)] += net.weight;
                    sole[at(arc.gate)] += net.arcs.size() == 1 ? net.weight : 0;
                }
            }
        }
        for (int gate = 0; gate < static_cast<int>(gates_.size()); ++gate) {
            if (gates_[at(gate)] == gate_state::contested && sole[at(gate)] > 0 &&
                sole[at(gate)] >= any[at(gate ^ 1)]) {
                take(gate);
            }
        }
    }

    std::optional<settled_problem> finish() {
        settled_problem result;
        result.satisfied_weight = satisfied_;
        result.decided.assign(gates_.size() / 2, -1);
        std::vector<int> new_choice(gates_.size() / 2, -1);
        for (std::size_t gate = 0; gate < gates_.size(); ++gate) {
            if (gates_[gate] == gate_state::open) {
                result.decided[gate / 2] = static_cast<signed char>(gate % 2);
            } else if (gates_[gate] == gate_state::contested && uses_[gate] > 0 && new_choice[gate / 2] < 0) {
                new_choice[gate / 2] = result.contested.num_choices();
                result.contested.choices.push_back(static_cast<int>(gate / 2));
            }
        }
        result.pair_of.assign(problem_.pairs.size(), -1);
        gather_pairs(new_choice, result.pair_of, result.contested);
        if (watch_.stop_requested()) {
            return std::nullopt;  // some pairs may be missing
        }
        gather_shared(new_choice, result.pair_of, result.contested.shared);
        return result;
    }

    int new_gate(int gate, const std::vector<int>& new_choice) const {
        return gate == open_gate || gates_[at(gate)] == gate_state::open ? open_gate
                                                                         : 2 * new_choice[at(gate / 2)] + gate % 2;
    }

    void gather_pairs(const std::vector<int>& new_choice, std::vector<int>& new_pair, contested_problem& made) {
        std::unordered_map<std::size_t, int> last_of_hash;
        std::vector<int> one_before;  // by pair made: the last one before it of the same hash, or -1
        for (std::size_t p = 0; p < problem_.pairs.size() && !watch_.stop_requested(); ++p) {
            pair_net& net = problem_.pairs[p];
            if (net.arcs.empty()) {
                continue;
            }
            number_net(net);
            std::size_t hash = 0;
            for (net_arc& arc : net.arcs) {
                arc.gate = new_gate(arc.gate, new_choice);
                hash = hash * 1000003 + (at(arc.tail) * 4099 + at(arc.head)) * 8209 + at(arc.gate + 1);
            }
            int& last = last_of_hash.try_emplace(hash, -1).first->second;
            int equal = steps_.merge_equal_pairs ? last : -1;
            while (equal >= 0 && made.pairs[at(equal)].arcs != net.arcs) {
                equal = one_before[at(equal)];
            }
            if (equal >= 0) {
                made.pairs[at(equal)].weight += net.weight;
                new_pair[p] = equal;
                continue;
            }
            one_before.push_back(last);
            new_pair[p] = last = static_cast<int>(made.pairs.size());
            net.arcs.shrink_to_fit();
            made.pairs.push_back(std::move(net));
        }
    }

    // The shared network with closed arcs taken out, nodes that open arcs reach made one
    // with the root, and whatever serves no remaining pair left away.
    void gather_shared(const std::vector<int>& new_choice, const std::vector<int>& new_pair,
                       shared_network& made) const {
        const shared_network& old = problem_.shared;
        std::vector<char> sure(old.nodes.size(), 0);
        std::vector<char> possible(old.nodes.size(), 0);
        const auto state = [this, &new_choice](const net_arc& arc) {
            if (arc.gate == open_gate) {
                return gate_state::open;
            }
            const gate_state known = gates_[at(arc.gate)];
            return known == gate_state::contested && new_choice[at(arc.gate / 2)] < 0 ? gate_state::closed : known;
        };
        for (const net_arc& arc : old.arcs) {
            if (state(arc) == gate_state::open && (arc.tail < 0 || sure[at(arc.tail)] != 0)) {
                sure[at(arc.head)] = 1;
            }
            if (state(arc) != gate_state::closed && (arc.tail < 0 || possible[at(arc.tail)] != 0)) {
                possible[at(arc.head)] = 1;
            }
        }
        std::vector<char> wanted(old.nodes.size(), 0);
        for (std::size_t v = 0; v < old.nodes.size(); ++v) {
            wanted[v] = old.nodes[v].pair >= 0 && new_pair[at(old.nodes[v].pair)] >= 0 ? 1 : 0;
        }
        std::vector<char> kept(old.arcs.size(), 0);
        for (std::size_t a = old.arcs.size(); a-- > 0;) {
            const net_arc& arc = old.arcs[a];
            if (wanted[at(arc.head)] != 0 && sure[at(arc.head)] == 0 && state(arc) != gate_state::closed &&
                (arc.tail < 0 || possible[at(arc.tail)] != 0)) {
                kept[a] = 1;
                if (arc.tail >= 0) {
                    wanted[at(arc.tail)] = 1;
                }
            }
        }
        std::vector<int> number(old.nodes.size(), -1);
        for (std::size_t a = 0; a < old.arcs.size(); ++a) {
            const net_arc& arc = old.arcs[a];
            if (kept[a] == 0) {
                continue;
            }
            int& head = number[at(arc.head)];
            if (head < 0) {
                head = made.num_nodes();
                const shared_network::node& node = old.nodes[at(arc.head)];
                const int pair = node.pair >= 0 ? new_pair[at(node.pair)] : -1;
                made.nodes.push_back({pair, pair >= 0 ? node.weight : 0});
            }
            made.arcs.push_back({arc.tail < 0 || sure[at(arc.tail)] != 0 ? -1 : number[at(arc.tail)], head,
                                 new_gate(arc.gate, new_choice)});
        }
    }

    contested_problem& problem_;
    std::vector<gate_state>& gates_;
    const settle_steps steps_;
    const solve_watch& watch_;
    std::vector<int> uses_;  // by gate: arcs of undecided pairs
    std::vector<std::vector<int>> pairs_of_choice_;
    std::vector<int> touched_;
    long satisfied_ = 0;
};

}  // namespace

settled_problem settle(contested_problem problem, std::vector<gate_state> gates, const settle_steps& steps) {
    return *settler(problem, gates, steps, {}).run();
}

std::optional<settled_problem> settle(contested_problem problem, std::vector<gate_state> gates,
                                      const settle_steps& steps, const solve_watch& watch) {
    return settler(problem, gates, steps, watch).run();
}

directions complete(const settled_problem& settled, const directions& of_rest, directions around) {
    for (std::size_t c = 0; c < around.size(); ++c) {
        if (settled.decided[c] >= 0) {
            around[c] = settled.decided[c];
        }
    }
    for (std::size_t c = 0; c < of_rest.size(); ++c) {
        around[at(settled.contested.choices[c])] = of_rest[c];
    }
    return around;
}

}  // namespace solver
