// The groups of choices whose hulls cut the tighter program (chain_bound.hpp), and the rows
// that come of it (hull_cuts.hpp).
//
// Where the program is wrong is told by the cuts that its bound rests on: each says of a
// pair that it is satisfied as often as any of a few gates and transitions, and these are
// made to exclude one another as no directions can. So the choices of a cut with a positive
// multiplier are a group, enlarged by the choices that share the most transition value with
// it. Conditional are the transitions within the group, and the pairs that some directions
// of it leave without a chain, all other choices open both ways: so a pair is denied only
// what no directions of the others could give it, and every row holds.
//
// Groups around what the bound rests on are this program's own idea; cuts from hulls of
// small subsets are those of local cuts (Applegate, Bixby, Chvatal and Cook 2001). Bounded:
// most_groups groups, and the hull of each is one small program. A group whose hull holds
// the values is passed over the next time.
#pragma once

#include <map>
#include <vector>

#include "solver/bound/chain_layout.hpp"
#include "solver/bound/hull_cuts.hpp"

namespace solver {

class chain_hulls {
 public:
    // Layout and watch must outlive this.
    chain_hulls(const contested_problem& problem, const chain_layout& layout, const solve_watch& watch);

    // Rows that the program's values break, of groups of so many choices at most. Cuts: the
    // rows of the program that are cuts of pairs.
    std::vector<program_row> broken_rows(const row_program& program, const std::vector<int>& cuts, int group_size);

 private:
    using group = std::vector<int>;  // choices in ascending order
    using choice_pulls = std::map<int, double>;

    void read_transitions(const row_program& program);
    group choices_of(const program_row& cut) const;
    void enlarge(group& choices, int size) const;
    bool add_row(const row_program& program, const group& choices, std::vector<program_row>& rows);
    std::vector<int> pairs_touched_by(const group& choices) const;

    const chain_layout& layout_;
    const solve_watch& watch_;
    hull_separator separator_;
    std::vector<pair_net> nets_;                    // by pair: its own network, arcs in order
    std::vector<int> num_choices_of_;               // by pair; 0 = the pair has no column
    std::vector<std::vector<int>> pairs_of_;        // by choice: pairs with a column
    std::vector<std::vector<int>> transitions_of_;  // by choice: transitions of some value
    std::vector<choice_pulls> shared_;              // by choice: transition value shared with others
    std::map<group, int> idle_since_;               // groups that broke nothing, and the round
    int round_ = 0;
};

}  // namespace solver
