#include "orientation/prepare_ilp.hpp"

#include "orientation/compressed_marking.hpp"
#include "orientation/flow_constraints.hpp"
#include "orientation/stepwise_marking.hpp"

namespace {

void add_sources_by_compressed_search(IloModel model, const std::function<bool()>& cut_requested) {
    compressed_marking marking;
    for (const auto& [pair_source, source_targets] : sources) {
        if (cut_requested()) {
            return;
        }
        add_flow_constraints(model, pair_source, source_targets, marking.mark(pair_source, source_targets));
    }
    marking.add_counts();
}

void add_sources_step_by_step(IloModel model, IsoMap isoMap, const std::function<bool()>& cut_requested) {
    reverse_into_comp_graph(isoMap);
    for (const auto& [pair_source, source_targets] : sources) {
        if (cut_requested()) {
            return;
        }
        add_flow_constraints(model, pair_source, source_targets,
                             mark_stepwise(pair_source, source_targets, false, isoMap));
    }
}

}  // namespace

bool prepare_ilp(IloModel model, bool allow_one_edge_path, IsoMap isoMap, const std::function<bool()>& cut_requested) {
    const std::size_t earlier_pairs = pairs.size();
    if (allow_one_edge_path) {
        // Without a source there may be no numbers either: a name table that
        // overflows ends the loading before they are given.
        if (!sources.empty()) {
            add_sources_by_compressed_search(model, cut_requested);
        }
    } else {
        add_sources_step_by_step(model, isoMap, cut_requested);
    }
    num_of_pairs = static_cast<int>(pairs.size() - earlier_pairs);
    model.add(objective);
    return true;
}
