// The modelling operations that the program uses: handles over one environment
// that owns everything made in it. Handles are two words each and copied freely;
// nothing is released before the environment is, and the run never ends it.
//
// Misuse throws IloException: a value asked for before a solve, a variable that
// is not in the model, an unknown parameter, an empty handle.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "solver/record/back_end.hpp"

namespace solver {
struct environment_data;
struct expression_data;
struct model_data;
struct session_data;

enum class extractable_kind : unsigned char { none, variable, constraint, objective };
}  // namespace solver

class IloException : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

class IloEnv {
 public:
    IloEnv();
    solver::environment_data* data() const { return data_.get(); }

 private:
    std::shared_ptr<solver::environment_data> data_;
};

// Anything that can stand in a model and bear a name and an id.
class IloExtractable {
 public:
    IloExtractable() = default;
    IloExtractable(solver::environment_data* environment, solver::extractable_kind kind, int index, unsigned id)
        : environment_(environment), index_(index), kind_(static_cast<unsigned>(kind)), id_(id) {}
    void setName(const char* name) const;
    const char* getName() const;  // null when unnamed
    long getId() const;           // unique in the environment, in order of creation
    bool empty() const { return environment_ == nullptr; }

    solver::environment_data* environment() const { return environment_; }
    solver::extractable_kind kind() const { return static_cast<solver::extractable_kind>(kind_); }
    int index() const { return index_; }  // among all of its kind in the environment

    static constexpr long most_items = 1L << 30;  // of an environment

 private:
    solver::environment_data* environment_ = nullptr;
    int index_ = -1;
    unsigned kind_ : 2 = 0;
    unsigned id_ : 30 = 0;
};

// Adds a new variable to an objective with coefficient 1.
struct IloAddNumVar {
    solver::environment_data* environment;
    int objective;
};

class IloNumVar : public IloExtractable {
 public:
    enum Type { Float, Bool };

    IloNumVar() = default;
    IloNumVar(IloEnv env, double lower, double upper, Type type, const char* name = nullptr);
    IloNumVar(const IloAddNumVar& column, double lower, double upper, Type type, const char* name = nullptr);
    explicit IloNumVar(const IloExtractable& item) : IloExtractable(item) {}
    int variable() const;  // its index; throws where there is none
};

class IloNumVarArray {
 public:
    explicit IloNumVarArray(IloEnv env, int size = 0);
    void add(const IloNumVar& variable) const;
    int getSize() const;
    IloNumVar operator[](int index) const;

 private:
    // A handle of 16 bytes for every flow would be more than all that the rows hold of it.
    struct item {
        int variable;
        unsigned id;
    };
    struct items;
    std::shared_ptr<items> items_;
};

// A variable with its coefficient. Most rows are made of single variables, and those
// need no expression with terms of its own.
struct IloNumTerm {
    IloNumVar variable;
    double coefficient;
};

// A linear expression. Copies share their terms, which live as long as the last copy.
class IloExpr {
 public:
    IloExpr(IloEnv env, double constant = 0.0);
    explicit IloExpr(std::shared_ptr<solver::expression_data> data) : data_(std::move(data)) {}
    IloExpr(const IloNumVar& variable);
    IloExpr(const IloNumTerm& term);
    IloExpr& operator+=(const IloNumVar& variable);
    IloExpr& operator+=(const IloExpr& other);
    solver::expression_data* data() const { return data_.get(); }

 private:
    std::shared_ptr<solver::expression_data> data_;
};

IloExpr operator+(const IloExpr& left, const IloExpr& right);
IloExpr operator+(const IloNumVar& left, const IloNumVar& right);
IloNumTerm operator*(int coefficient, const IloNumVar& variable);

class IloConstraint : public IloExtractable {
 public:
    IloConstraint() = default;
    explicit IloConstraint(const IloExtractable& item) : IloExtractable(item) {}
};

IloConstraint operator<=(const IloExpr& left, double right);
IloConstraint operator<=(const IloExpr& left, const IloExpr& right);
IloConstraint operator<=(const IloNumVar& left, double right);
IloConstraint operator<=(const IloNumVar& left, const IloNumTerm& right);
IloConstraint operator<=(const IloNumVar& left, const IloExpr& right);

class IloObjective : public IloExtractable {
 public:
    enum Sense { Minimize, Maximize };

    IloObjective() = default;
    IloObjective(IloEnv env, double constant, Sense sense, const char* name = nullptr);
    IloAddNumVar operator()() const;
};

class IloModel {
 public:
    explicit IloModel(IloEnv env);
    void add(const IloExtractable& item) const;
    const std::shared_ptr<solver::model_data>& data() const { return data_; }

 private:
    std::shared_ptr<solver::model_data> data_;
};

class IloAlgorithm {
 public:
    enum Status { Unknown, Feasible, Optimal, Infeasible, Unbounded, InfeasibleOrUnbounded, Error };
};

std::ostream& operator<<(std::ostream& out, IloAlgorithm::Status status);

// A solver over one model, which counts as it stands at every export and solve.
class IloCplex : public IloAlgorithm {
 public:
    enum IntParam { RootAlg, VarSel, DiveType };
    enum NumParam { WorkMem, EpGap };
    enum Algorithm { Network = 3 };

    explicit IloCplex(const IloModel& model);
    void setParam(IntParam parameter, int value);
    void setParam(NumParam parameter, double value);
    void setPriority(const IloNumVar& variable, double priority);

    // True when a checked solution is at hand (status Optimal or Feasible).
    bool solve();
    Status getStatus() const;
    double getObjValue() const;
    double getValue(const IloNumVar& variable) const;

    // Makes what exporting and solving begin from, which they would else make themselves:
    // a solve that is stopped at once then answers sooner. False, once cut_requested,
    // asked now and then, is true: the model is as good as not made.
    bool prepare(const std::function<bool()>& cut_requested) const;

    // Writes the model in LP format. A path that cannot be written is no error.
    // Gives the reason when the file could not be completed, else nothing (lp_file.hpp).
    std::string exportModel(
        const char* path, const std::function<bool()>& cut_requested = [] { return false; }) const;

    // The back end of later solves, and who watches them; defaults: the one that
    // the build names, and nobody. Gives the watch that was set before.
    void use_back_end(const solver::back_end& back_end);
    solver::solve_watch set_watch(solver::solve_watch watch);
    // Why the last solve gave no solution: one line, empty when there is nothing to say.
    const std::string& failure_reason() const;
    // The record that a solve would hand to the back end now.
    solver::model_record record() const;
    // What the last solve was about and what came of it: its record, as long as the model
    // stays as it is, its answer, and where a variable stands in both (-1 = not in the model).
    const solver::model_record& solved_record() const;
    const solver::solve_answer& answer() const;
    int column_of(const IloNumVar& variable) const;

 private:
    std::shared_ptr<solver::session_data> data_;
};
