#include "solver/concert.hpp"

#include "solver/environment.hpp"

using namespace solver;

namespace {

void name_item(extractable_data& item, const char* name) {
    item.name = name == nullptr ? nullptr : &item.environment->names.emplace_back(name);
}

extractable_data new_item(environment_data* environment, extractable_kind kind) {
    return {environment, environment->next_id++, kind};
}

template <typename item_type>
item_type* checked(extractable_data* item, extractable_kind kind, const char* what) {
    if (item == nullptr || item->kind != kind) {
        throw IloException(std::string("an empty handle stands in place of ") + what);
    }
    return static_cast<item_type*>(item);
}

variable_data* new_variable(environment_data* environment, double lower, double upper, IloNumVar::Type type,
                            const char* name) {
    const std::size_t index = environment->variables.size();
    variable_data& made = environment->variables.emplace_back(
        variable_data{new_item(environment, extractable_kind::variable), lower, upper, type, index});
    name_item(made, name);
    return &made;
}

IloConstraint new_constraint(environment_data* environment, std::size_t first_term, double upper) {
    const std::size_t num_terms = environment->row_terms.size() - first_term;
    return IloConstraint(&environment->constraints.emplace_back(
        constraint_data{new_item(environment, extractable_kind::constraint), first_term, num_terms, upper}));
}

}  // namespace

IloEnv::IloEnv() : data_(std::make_shared<environment_data>()) {}

void IloExtractable::setName(const char* name) const {
    if (empty()) {
        throw IloException("an empty handle cannot be named");
    }
    name_item(*data_, name);
}

const char* IloExtractable::getName() const {
    return empty() || data_->name == nullptr ? nullptr : data_->name->c_str();
}

long IloExtractable::getId() const {
    if (empty()) {
        throw IloException("an empty handle has no id");
    }
    return data_->id;
}

IloNumVar::IloNumVar(IloEnv env, double lower, double upper, Type type, const char* name)
    : IloExtractable(new_variable(env.data(), lower, upper, type, name)) {}

IloNumVar::IloNumVar(const IloAddNumVar& column, double lower, double upper, Type type, const char* name)
    : IloExtractable(new_variable(column.objective->environment, lower, upper, type, name)) {
    column.objective->terms.push_back({variable(), 1.0});
}

variable_data* IloNumVar::variable() const {
    return checked<variable_data>(data(), extractable_kind::variable, "a variable");
}

IloNumVarArray::IloNumVarArray(IloEnv env, int size) : items_(std::make_shared<std::vector<IloNumVar>>()) {
    for (int i = 0; i < size; ++i) {
        items_->emplace_back(env, 0.0, infinity, IloNumVar::Float);
    }
}

void IloNumVarArray::add(const IloNumVar& variable) const {
    items_->push_back(variable);
}

int IloNumVarArray::getSize() const {
    return static_cast<int>(items_->size());
}

IloNumVar IloNumVarArray::operator[](int index) const {
    return items_->at(static_cast<std::size_t>(index));
}

IloExpr::IloExpr(IloEnv env, double constant)
    : data_(std::make_shared<expression_data>(expression_data{env.data(), constant, {}})) {}

IloExpr::IloExpr(const IloNumVar& variable)
    : data_(std::make_shared<expression_data>(
          expression_data{variable.variable()->environment, 0.0, {{variable.variable(), 1.0}}})) {}

IloExpr& IloExpr::operator+=(const IloNumVar& variable) {
    data_->terms.push_back({variable.variable(), 1.0});
    return *this;
}

IloExpr& IloExpr::operator+=(const IloExpr& other) {
    // By position: the other expression may be this one.
    const std::size_t count = other.data_->terms.size();
    for (std::size_t i = 0; i < count; ++i) {
        data_->terms.push_back(other.data_->terms[i]);
    }
    data_->constant += other.data_->constant;
    return *this;
}

IloExpr operator+(const IloExpr& left, const IloExpr& right) {
    IloExpr sum(std::make_shared<expression_data>(*left.data()));
    sum += right;
    return sum;
}

IloExpr operator*(int coefficient, const IloNumVar& variable) {
    IloExpr term(variable);
    term.data()->terms.front().coefficient = coefficient;
    return term;
}

IloConstraint::IloConstraint(constraint_data* data) : IloExtractable(data) {}

constraint_data* IloConstraint::constraint() const {
    return checked<constraint_data>(data(), extractable_kind::constraint, "a constraint");
}

IloConstraint operator<=(const IloExpr& left, double right) {
    environment_data* environment = left.data()->environment;
    const std::size_t first_term = environment->row_terms.size();
    environment->row_terms.insert(environment->row_terms.end(), left.data()->terms.begin(), left.data()->terms.end());
    return new_constraint(environment, first_term, right - left.data()->constant);
}

IloConstraint operator<=(const IloExpr& left, const IloExpr& right) {
    environment_data* environment = left.data()->environment;
    const std::size_t first_term = environment->row_terms.size();
    environment->row_terms.insert(environment->row_terms.end(), left.data()->terms.begin(), left.data()->terms.end());
    for (const linear_term& term : right.data()->terms) {
        environment->row_terms.push_back({term.variable, -term.coefficient});
    }
    return new_constraint(environment, first_term, right.data()->constant - left.data()->constant);
}

IloObjective::IloObjective(IloEnv env, double constant, Sense sense, const char* name)
    : IloExtractable(&env.data()->objectives.emplace_back(
          objective_data{new_item(env.data(), extractable_kind::objective), constant, sense, {}})) {
    name_item(*data(), name);
}

IloAddNumVar IloObjective::operator()() const {
    return {objective()};
}

objective_data* IloObjective::objective() const {
    return checked<objective_data>(data(), extractable_kind::objective, "an objective");
}

IloModel::IloModel(IloEnv env) : data_(std::make_shared<model_data>()) {
    data_->environment = env.data();
}

void IloModel::add(const IloExtractable& item) const {
    if (item.empty()) {
        throw IloException("an empty handle cannot be added to a model");
    }
    switch (item.data()->kind) {
        case extractable_kind::constraint:
            data_->constraints.push_back(static_cast<constraint_data*>(item.data()));
            break;
        case extractable_kind::objective:
            if (data_->objective != nullptr && data_->objective != item.data()) {
                throw IloException("a model takes one objective");
            }
            data_->objective = static_cast<objective_data*>(item.data());
            break;
        case extractable_kind::variable:
            throw IloException("a variable stands in a model through its rows or the objective only");
    }
}
