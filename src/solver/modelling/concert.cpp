#include "solver/modelling/concert.hpp"

#include <cstring>

#include "solver/modelling/environment.hpp"

using namespace solver;

namespace {

void name_item(extractable_data& item, const char* name) {
    item.name = nullptr;
    if (name != nullptr) {
        const std::size_t size = std::strlen(name) + 1;
        item.name = static_cast<const char*>(std::memcpy(item.environment->names.take(size), name, size));
    }
    ++item.environment->changes;
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
    const int index = static_cast<int>(environment->variables.size());
    variable_data& made = environment->variables.emplace_back(
        variable_data{new_item(environment, extractable_kind::variable), lower, upper, type, index});
    name_item(made, name);
    return &made;
}

linear_term unit_term(const IloNumVar& variable) {
    return {variable.variable()->index, 1.0};
}

// Writes an expression's terms, as they are or for the other side of a row.
linear_term* write_terms(const std::vector<linear_term>& terms, double factor, linear_term* out) {
    for (const linear_term& term : terms) {
        *out++ = {term.variable, factor * term.coefficient};
    }
    return out;
}

IloConstraint new_constraint(environment_data* environment, const linear_term* terms, std::size_t num_terms,
                             double upper) {
    return IloConstraint(&environment->constraints.emplace_back(
        constraint_data{new_item(environment, extractable_kind::constraint), terms, num_terms, upper}));
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
    return empty() ? nullptr : data_->name;
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
    column.objective->terms.push_back(unit_term(*this));
    ++column.objective->environment->changes;
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
          expression_data{variable.variable()->environment, 0.0, {unit_term(variable)}})) {}

IloExpr::IloExpr(const IloNumTerm& term) : IloExpr(term.variable) {
    data_->terms.front().coefficient = term.coefficient;
}

IloExpr& IloExpr::operator+=(const IloNumVar& variable) {
    data_->terms.push_back(unit_term(variable));
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

IloExpr operator+(const IloNumVar& left, const IloNumVar& right) {
    IloExpr sum(left);
    sum += right;
    return sum;
}

IloNumTerm operator*(int coefficient, const IloNumVar& variable) {
    variable.variable();
    return {variable, static_cast<double>(coefficient)};
}

IloConstraint::IloConstraint(constraint_data* data) : IloExtractable(data) {}

constraint_data* IloConstraint::constraint() const {
    return checked<constraint_data>(data(), extractable_kind::constraint, "a constraint");
}

IloConstraint operator<=(const IloExpr& left, double right) {
    environment_data* environment = left.data()->environment;
    const std::vector<linear_term>& expression = left.data()->terms;
    linear_term* terms = environment->row_terms.take(expression.size());
    write_terms(expression, 1.0, terms);
    return new_constraint(environment, terms, expression.size(), right - left.data()->constant);
}

IloConstraint operator<=(const IloExpr& left, const IloExpr& right) {
    environment_data* environment = left.data()->environment;
    const std::size_t num_terms = left.data()->terms.size() + right.data()->terms.size();
    linear_term* terms = environment->row_terms.take(num_terms);
    write_terms(right.data()->terms, -1.0, write_terms(left.data()->terms, 1.0, terms));
    return new_constraint(environment, terms, num_terms, right.data()->constant - left.data()->constant);
}

IloConstraint operator<=(const IloNumVar& left, double right) {
    environment_data* environment = left.variable()->environment;
    linear_term* terms = environment->row_terms.take(1);
    terms[0] = unit_term(left);
    return new_constraint(environment, terms, 1, right);
}

IloConstraint operator<=(const IloNumVar& left, const IloNumTerm& right) {
    environment_data* environment = left.variable()->environment;
    linear_term* terms = environment->row_terms.take(2);
    terms[0] = unit_term(left);
    terms[1] = {right.variable.variable()->index, -right.coefficient};
    return new_constraint(environment, terms, 2, 0.0);
}

IloConstraint operator<=(const IloNumVar& left, const IloExpr& right) {
    environment_data* environment = left.variable()->environment;
    const std::size_t num_terms = 1 + right.data()->terms.size();
    linear_term* terms = environment->row_terms.take(num_terms);
    terms[0] = unit_term(left);
    write_terms(right.data()->terms, -1.0, terms + 1);
    return new_constraint(environment, terms, num_terms, right.data()->constant);
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
    ++data_->environment->changes;
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
