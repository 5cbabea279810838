// IloCplex: a solver over one model, whichever back end stands behind it.
#include <algorithm>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "solver/back_ends/back_ends.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/lp_file/lp_file.hpp"
#include "solver/modelling/environment.hpp"

using namespace solver;

namespace solver {

struct session_data {
    std::shared_ptr<model_data> model;
    solve_settings settings;
    std::vector<double> priorities;  // by variable, as many as were needed; 0 = none
    back_end chosen = default_back_end();
    solve_watch watch;

    // Made at the first export or solve, and again when the environment has changed.
    model_record record;
    std::shared_ptr<const column_index> record_columns = std::make_shared<column_index>();
    long changes_at_record = -1;
    std::optional<reach_structure> structure;  // found in the record
    bool is_structure_known = false;           // of this record

    solve_answer answer;
    std::shared_ptr<const column_index> columns = record_columns;  // of the last solve
};

}  // namespace solver

namespace {

IloAlgorithm::Status concert_status(solve_status status) {
    switch (status) {
        case solve_status::feasible:
            return IloAlgorithm::Feasible;
        case solve_status::optimal:
            return IloAlgorithm::Optimal;
        case solve_status::infeasible:
            return IloAlgorithm::Infeasible;
        case solve_status::unbounded:
            return IloAlgorithm::Unbounded;
        case solve_status::infeasible_or_unbounded:
            return IloAlgorithm::InfeasibleOrUnbounded;
        case solve_status::error:
            return IloAlgorithm::Error;
        case solve_status::unknown:
            break;
    }
    return IloAlgorithm::Unknown;
}

bool has_solution(const solve_answer& answer) {
    return answer.status == solve_status::optimal || answer.status == solve_status::feasible;
}

bool never() {
    return false;
}

// False when cut.
bool bring_record_up_to_date(session_data& session, const std::function<bool()>& cut_requested) {
    if (session.changes_at_record == session.model->environment->changes) {
        return true;
    }
    column_index columns;
    session.record = {};  // its memory first
    session.changes_at_record = -1;
    session.structure.reset();
    session.is_structure_known = false;
    std::optional<model_record> record = make_record(*session.model, columns, cut_requested);
    if (!record) {
        return false;
    }
    session.record = std::move(*record);
    session.record_columns = std::make_shared<const column_index>(std::move(columns));
    session.changes_at_record = session.model->environment->changes;
    return true;
}

const model_record& current_record(session_data& session) {
    bring_record_up_to_date(session, never);
    session.record.settings = session.settings;
    const std::size_t known = std::min(session.priorities.size(), session.record_columns->size());
    std::vector<double>& priorities = session.record.column_priority;
    for (std::size_t v = 0; v < known; ++v) {
        const int column = (*session.record_columns)[v];
        if (column >= 0) {
            priorities.resize(std::max(priorities.size(), static_cast<std::size_t>(column) + 1), 0.0);
            priorities[static_cast<std::size_t>(column)] = session.priorities[v];
        }
    }
    return session.record;
}

// The ranges are CPLEX's own. Not a number is in none.
void require_between(const char* what, double value, double least, double most) {
    if (!(value >= least && value <= most)) {
        throw IloException(std::string(what) + " cannot be " + std::to_string(value));
    }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, IloAlgorithm::Status status) {
    switch (status) {
        case IloAlgorithm::Unknown:
            return out << "Unknown";
        case IloAlgorithm::Feasible:
            return out << "Feasible";
        case IloAlgorithm::Optimal:
            return out << "Optimal";
        case IloAlgorithm::Infeasible:
            return out << "Infeasible";
        case IloAlgorithm::Unbounded:
            return out << "Unbounded";
        case IloAlgorithm::InfeasibleOrUnbounded:
            return out << "InfeasibleOrUnbounded";
        case IloAlgorithm::Error:
            return out << "Error";
    }
    return out << "Unknown";
}

IloCplex::IloCplex(const IloModel& model) : data_(std::make_shared<session_data>()) {
    data_->model = model.data();
}

void IloCplex::setParam(IntParam parameter, int value) {
    switch (parameter) {
        case RootAlg:
            require_between("RootAlg", value, 0, 6);
            data_->settings.root_algorithm = value;
            return;
        case VarSel:
            require_between("VarSel", value, -1, 4);
            data_->settings.variable_selection = value;
            return;
        case DiveType:
            require_between("DiveType", value, 0, 3);
            data_->settings.dive_type = value;
            return;
    }
    throw IloException("unknown integer parameter " + std::to_string(static_cast<int>(parameter)));
}

void IloCplex::setParam(NumParam parameter, double value) {
    switch (parameter) {
        case WorkMem:
            require_between("WorkMem", value, 0.0, 1e75);
            data_->settings.work_memory = value;
            return;
        case EpGap:
            require_between("EpGap", value, 0.0, 1.0);
            data_->settings.relative_gap = value;
            return;
    }
    throw IloException("unknown numeric parameter " + std::to_string(static_cast<int>(parameter)));
}

void IloCplex::setPriority(const IloNumVar& variable, double priority) {
    const auto index = static_cast<std::size_t>(variable.variable());
    require_between("a priority", priority, 0.0, 1e9);
    if (index >= data_->priorities.size()) {
        data_->priorities.resize(index + 1, 0.0);
    }
    data_->priorities[index] = priority;
}

bool IloCplex::solve() {
    const model_record& record = current_record(*data_);
    data_->columns = data_->record_columns;
    if (std::exchange(data_->is_structure_known, false)) {
        const std::optional<reach_structure> structure = std::exchange(data_->structure, std::nullopt);
        data_->answer = solve_record(record, structure, data_->chosen, data_->watch);
    } else {
        data_->answer = solve_record(record, data_->chosen, data_->watch);
    }
    return has_solution(data_->answer);
}

IloAlgorithm::Status IloCplex::getStatus() const {
    return concert_status(data_->answer.status);
}

double IloCplex::getObjValue() const {
    if (!has_solution(data_->answer)) {
        throw IloException("no solution: the objective value is asked for before a successful solve");
    }
    return data_->answer.objective;
}

double IloCplex::getValue(const IloNumVar& variable) const {
    if (!has_solution(data_->answer)) {
        throw IloException("no solution: a value is asked for before a successful solve");
    }
    const int column = column_of(variable);
    if (column < 0) {
        const char* name = variable.getName();
        throw IloException(std::string("not in the model: variable ") + (name == nullptr ? "without a name" : name));
    }
    return data_->answer.values[static_cast<std::size_t>(column)];
}

int IloCplex::column_of(const IloNumVar& variable) const {
    const auto index = static_cast<std::size_t>(variable.variable());
    return index < data_->columns->size() ? (*data_->columns)[index] : -1;
}

const model_record& IloCplex::solved_record() const {
    return data_->record;
}

const solve_answer& IloCplex::answer() const {
    return data_->answer;
}

bool IloCplex::prepare(const std::function<bool()>& cut_requested) const {
    if (!bring_record_up_to_date(*data_, cut_requested)) {
        return false;
    }
    try {
        data_->structure = find_reach_structure(data_->record);
        data_->is_structure_known = true;
    } catch (const std::bad_alloc&) {
        // The solve will say so; the model can be exported all the same.
    }
    return true;
}

std::string IloCplex::exportModel(const char* path, const std::function<bool()>& cut_requested) const {
    return write_lp_file(current_record(*data_), path, cut_requested);
}

void IloCplex::use_back_end(const solver::back_end& back_end) {
    data_->chosen = back_end;
}

solve_watch IloCplex::set_watch(solve_watch watch) {
    return std::exchange(data_->watch, std::move(watch));
}

const std::string& IloCplex::failure_reason() const {
    return data_->answer.reason;
}

model_record IloCplex::record() const {
    return current_record(*data_);
}
