#include "solver/bound/pair_rows.hpp"

#include <algorithm>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {

pair_layout lay_out_pairs(const contested_problem& problem) {
    pair_layout layout;
    layout.weights.assign(problem.choices.size(), 0.0);
    for (const pair_net& pair : problem.pairs) {
        const auto weight = static_cast<double>(pair.weight);
        if (pair.arcs.size() == 1) {
            const int gate = pair.arcs.front().gate;
            layout.weights[at(gate / 2)] += gate % 2 == 0 ? weight : -weight;
            layout.constant += gate % 2 == 0 ? 0.0 : weight;
            layout.pair_columns.push_back(-1);
        } else {
            layout.pair_columns.push_back(static_cast<int>(layout.weights.size()));
            layout.weights.push_back(weight);
        }
    }
    return layout;
}

void subtract_gate(program_row& row, int gate) {
    row.columns.push_back(gate / 2);
    row.values.push_back(gate % 2 == 0 ? -1.0 : 1.0);
    row.upper += gate % 2;
}

std::vector<double> gate_values_of(const std::vector<double>& values, int num_choices) {
    std::vector<double> gate_values(at(2 * num_choices));
    for (int c = 0; c < num_choices; ++c) {
        gate_values[at(2 * c)] = std::clamp(values[at(c)], 0.0, 1.0);
        gate_values[at(2 * c + 1)] = 1.0 - gate_values[at(2 * c)];
    }
    return gate_values;
}

std::optional<program_row> cut_row(int pair_column, const gate_cut& cut, const gate_columns& gates) {
    program_row row{{pair_column}, {1.0}, 0.0};
    for (std::size_t i = 0; i < cut.size(); ++i) {
        if (cut[i] >= gates.num_gates) {
            row.columns.push_back(gates.first_other + cut[i] - gates.num_gates);
            row.values.push_back(-1.0);
            continue;
        }
        if (i + 1 < cut.size() && cut[i + 1] < gates.num_gates && cut[i] / 2 == cut[i + 1] / 2) {
            return std::nullopt;
        }
        subtract_gate(row, cut[i]);
    }
    return row;
}

void add_cut_row(row_program& program, int pair_column, const gate_cut& cut, const gate_columns& gates) {
    if (std::optional<program_row> row = cut_row(pair_column, cut, gates)) {
        program.add_row(*std::move(row));
    }
}

void add_broken_cut_rows(row_program& program, const std::vector<pair_net>& nets, const std::vector<int>& pair_columns,
                         const std::vector<double>& gate_values, const std::vector<double>& values, double tolerance,
                         const gate_columns& gates, const solve_watch& watch) {
    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < nets.size() && !watch.stop_requested(); ++p) {
        if (pair_columns[p] < 0) {
            continue;
        }
        cuts.clear();
        find_cuts(nets[p], gate_values, values[at(pair_columns[p])], tolerance, cuts);
        for (const gate_cut& cut : cuts) {
            add_cut_row(program, pair_columns[p], cut, gates);
        }
    }
}

}  // namespace solver
