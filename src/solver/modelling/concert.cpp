#include "solver/modelling/concert.hpp"

#include <algorithm>
#include <cstring>

#include "solver/modelling/environment.hpp"

using namespace solver;

namespace {

sparse_names& names_of(const IloExtractable& item) {
    environment_data& environment = *item.environment();
    return item.kind() == extractable_kind::variable     ? environment.variable_names
           : item.kind() == extractable_kind::constraint ? environment.row_names
                                                         : environment.objective_names;
}

IloExtractable new_item(environment_data* environment, extractable_kind kind, std::size_t index) {
    if (environment->next_id >= IloExtractable::most_items) {
        throw IloException("more variables and rows than an environment takes");
    }
    ++environment->changes;
    return {environment, kind, static_cast<int>(index), static_cast<unsigned>(environment->next_id++)};
}

IloExtractable new_variable(environment_data* environment, double lower, double upper, IloNumVar::Type type,
                            const char* name) {
    const IloExtractable made =
        new_item(environment, extractable_kind::variable, environment->variable_integral.size());
    environment->variable_lower.push_back(lower);
    environment->variable_upper.push_back(upper);
    environment->variable_integral.push_back(type == IloNumVar::Bool ? 1 : 0);
    if (name != nullptr) {
        environment->variable_names.set(made.index(), name);
    }
    return made;
}

linear_term unit_term(const IloNumVar& variable) {
    return {variable.variable(), 1.0};
}

void add_term(environment_data* environment, int variable, double coefficient) {
    environment->row_variable.push_back(variable);
    environment->row_coefficient.push_back(coefficient);
}

// Adds an expression's terms to the row being made, as they are or for its other side.
void add_terms(environment_data* environment, const std::vector<linear_term>& terms, double factor) {
    for (const linear_term& term : terms) {
        add_term(environment, term.variable, factor * term.coefficient);
    }
}

// The row whose terms were added last.
IloConstraint end_row(environment_data* environment, double upper) {
    const IloExtractable made = new_item(environment, extractable_kind::constraint, environment->row_upper.size());
    environment->row_start.push_back(environment->row_variable.size());
    environment->row_upper.push_back(upper);
    return IloConstraint(made);
}

}  // namespace

const char* sparse_names::name_of(int index) const {
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), index,
                                        [](const entry& one, int wanted) { return one.index < wanted; });
    return found == entries_.end() || found->index != index ? nullptr : found->name;
}

const char* sparse_names::name_of(int index, std::size_t& place) const {
    while (place < entries_.size() && entries_[place].index < index) {
        ++place;
    }
    if (place > 0 && entries_[place - 1].index >= index) {
        return name_of(index);
    }
    return place < entries_.size() && entries_[place].index == index ? entries_[place].name : nullptr;
}

// Most are named in their order.
void sparse_names::set(int index, const char* name) {
    const char* text = name == nullptr ? nullptr : kept(name);
    if (entries_.empty() || entries_.back().index < index) {
        entries_.push_back({index, text});
        return;
    }
    const auto place = std::lower_bound(entries_.begin(), entries_.end(), index,
                                        [](const entry& one, int wanted) { return one.index < wanted; });
    if (place->index == index) {
        place->name = text;
    } else {
        entries_.insert(place, {index, text});
    }
}

const char* sparse_names::kept(const char* name) {
    constexpr std::size_t block_size = std::size_t{1} << 12;
    const std::size_t size = std::strlen(name) + 1;
    if (size > left_) {
        left_ = std::max(size, block_size);
        blocks_.emplace_back(new char[left_]);
        next_ = blocks_.back().get();
    }
    char* text = static_cast<char*>(std::memcpy(next_, name, size));
    next_ += size;
    left_ -= size;
    return text;
}

IloEnv::IloEnv() : data_(std::make_shared<environment_data>()) {}

void IloExtractable::setName(const char* name) const {
    if (empty()) {
        throw IloException("an empty handle cannot be named");
    }
    names_of(*this).set(index_, name);
    ++environment_->changes;
}

const char* IloExtractable::getName() const {
    return empty() ? nullptr : names_of(*this).name_of(index_);
}

long IloExtractable::getId() const {
    if (empty()) {
        throw IloException("an empty handle has no id");
    }
    return static_cast<long>(id_);
}

IloNumVar::IloNumVar(IloEnv env, double lower, double upper, Type type, const char* name)
    : IloExtractable(new_variable(env.data(), lower, upper, type, name)) {}

IloNumVar::IloNumVar(const IloAddNumVar& column, double lower, double upper, Type type, const char* name)
    : IloExtractable(new_variable(column.environment, lower, upper, type, name)) {
    column.environment->objectives[static_cast<std::size_t>(column.objective)].terms.push_back(unit_term(*this));
}

int IloNumVar::variable() const {
    if (kind() != extractable_kind::variable) {
        throw IloException("an empty handle stands in place of a variable");
    }
    return index();
}

struct IloNumVarArray::items {
    IloEnv environment;
    std::vector<item> all;
};

IloNumVarArray::IloNumVarArray(IloEnv env, int size) : items_(std::make_shared<items>(items{env, {}})) {
    for (int i = 0; i < size; ++i) {
        add(IloNumVar(env, 0.0, infinity, IloNumVar::Float));
    }
}

void IloNumVarArray::add(const IloNumVar& variable) const {
    if (variable.environment() != items_->environment.data()) {
        throw IloException("a variable of another environment, or none, is added to an array");
    }
    items_->all.push_back({variable.variable(), static_cast<unsigned>(variable.getId())});
}

int IloNumVarArray::getSize() const {
    return static_cast<int>(items_->all.size());
}

IloNumVar IloNumVarArray::operator[](int index) const {
    const item& found = items_->all.at(static_cast<std::size_t>(index));
    return IloNumVar(IloExtractable(items_->environment.data(), extractable_kind::variable, found.variable, found.id));
}

IloExpr::IloExpr(IloEnv env, double constant)
    : data_(std::make_shared<expression_data>(expression_data{env.data(), constant, {}})) {}

IloExpr::IloExpr(const IloNumVar& variable)
    : data_(std::make_shared<expression_data>(expression_data{variable.environment(), 0.0, {unit_term(variable)}})) {}

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

IloConstraint operator<=(const IloExpr& left, double right) {
    environment_data* environment = left.data()->environment;
    add_terms(environment, left.data()->terms, 1.0);
    return end_row(environment, right - left.data()->constant);
}

IloConstraint operator<=(const IloExpr& left, const IloExpr& right) {
    environment_data* environment = left.data()->environment;
    add_terms(environment, left.data()->terms, 1.0);
    add_terms(environment, right.data()->terms, -1.0);
    return end_row(environment, right.data()->constant - left.data()->constant);
}

IloConstraint operator<=(const IloNumVar& left, double right) {
    add_term(left.environment(), left.variable(), 1.0);
    return end_row(left.environment(), right);
}

IloConstraint operator<=(const IloNumVar& left, const IloNumTerm& right) {
    const int bounded = left.variable();
    const int bounding = right.variable.variable();
    add_term(left.environment(), bounded, 1.0);
    add_term(left.environment(), bounding, -right.coefficient);
    return end_row(left.environment(), 0.0);
}

IloConstraint operator<=(const IloNumVar& left, const IloExpr& right) {
    add_term(left.environment(), left.variable(), 1.0);
    add_terms(left.environment(), right.data()->terms, -1.0);
    return end_row(left.environment(), right.data()->constant);
}

IloObjective::IloObjective(IloEnv env, double constant, Sense sense, const char* name)
    : IloExtractable(new_item(env.data(), extractable_kind::objective, env.data()->objectives.size())) {
    env.data()->objectives.push_back({constant, sense, {}});
    if (name != nullptr) {
        setName(name);
    }
}

IloAddNumVar IloObjective::operator()() const {
    if (kind() != extractable_kind::objective) {
        throw IloException("an empty handle stands in place of an objective");
    }
    return {environment(), index()};
}

IloModel::IloModel(IloEnv env) : data_(std::make_shared<model_data>()) {
    data_->environment = env.data();
}

void IloModel::add(const IloExtractable& item) const {
    ++data_->environment->changes;
    switch (item.kind()) {
        case extractable_kind::constraint:
            if (!data_->constraints.empty() && data_->constraints.back().last == item.index()) {
                ++data_->constraints.back().last;
            } else {
                data_->constraints.push_back({item.index(), item.index() + 1});
            }
            return;
        case extractable_kind::objective:
            if (data_->objective >= 0 && data_->objective != item.index()) {
                throw IloException("a model takes one objective");
            }
            data_->objective = item.index();
            return;
        case extractable_kind::variable:
            throw IloException("a variable stands in a model through its rows or the objective only");
        case extractable_kind::none:
            break;
    }
    throw IloException("an empty handle cannot be added to a model");
}
