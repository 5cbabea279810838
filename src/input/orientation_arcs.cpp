#include "input/orientation_arcs.hpp"

namespace {

// Sets what the readers owe a new arc; what is not set is zero, false or empty.
edge_descriptor add_marked_arc(vertex_descriptor tail, vertex_descriptor head, double confidence, int direction,
                               arc_marks marks) {
    const edge_descriptor arc = add_arc(tail, head);
    boost::put(parallel_confidence_map, arc, confidence);
    boost::put(directions_map, arc, direction);
    boost::put(hidden_map, arc, marks.hidden);
    boost::put(test_map, arc, marks.test);
    std::string name;
    name.reserve(2 * max_name_length + 3);
    name.append("o_").append(boost::get(names_map, tail)).append("_").append(boost::get(names_map, head));
    boost::put(vars_map, arc, IloNumVar(env, 0.0, 1.0, IloNumVar::Bool, name.c_str()));
    return arc;
}

}  // namespace

void add_directed_arc(IloModel model, vertex_descriptor tail, vertex_descriptor head, double confidence) {
    const edge_descriptor arc = add_marked_arc(tail, head, confidence, 1, arc_marks{});
    model.add(boost::get(vars_map, arc) <= 1);
}

void add_orientable_pair(IloModel model, vertex_descriptor first, vertex_descriptor second, double confidence,
                         arc_marks forward, arc_marks backward, const char* constraint_name) {
    const edge_descriptor arc = add_marked_arc(first, second, confidence, 0, forward);
    const edge_descriptor opposite_arc = add_marked_arc(second, first, confidence, 0, backward);
    const IloConstraint only_one_direction = boost::get(vars_map, arc) + boost::get(vars_map, opposite_arc) <= 1;
    if (constraint_name != nullptr) {
        only_one_direction.setName(constraint_name);
    }
    model.add(only_one_direction);
    keep_constraints_Ids.push_back(only_one_direction.getId());
}
