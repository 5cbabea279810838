// The modelling operations: what they put into the record, and their misuse.
#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "solver/modelling/concert.hpp"

using namespace solver;
using doubles = std::vector<double>;
using strings = std::vector<std::string>;

namespace {

class modelling : public testing::Test {
 protected:
    IloNumVar binary(const char* name = nullptr) const { return IloNumVar(env, 0.0, 1.0, IloNumVar::Bool, name); }

    const IloEnv env;
    const IloModel model{env};
};

}  // namespace

TEST_F(modelling, orders_rows_as_added_and_columns_by_first_appearance) {
    const IloObjective objective(env, 0.5, IloObjective::Maximize);
    const IloNumVar last(objective(), 0.0, 4.0, IloNumVar::Float, "last");
    const IloNumVar a = binary("a");
    const IloNumVar b = binary();
    binary("in no row, so no column");
    const IloNumVar both(objective(), 0.0, 2.0, IloNumVar::Float, "both");
    IloExpr sum(env);
    sum += b;
    sum += a;
    const IloConstraint first = sum <= 1.0;
    IloExpr shared = sum;
    shared += sum;  // no longer the one in the first row
    shared += IloExpr(env, 3.0);
    const IloConstraint second = sum <= 2 * both + b + IloExpr(env, 1.0);  // 2b + 2a + 3 <= 2 both + b + 1
    second.setName("second");
    model.add(second);
    model.add(first);
    model.add(objective);
    const model_record record = IloCplex(model).record();
    EXPECT_EQ(record.column_names, (strings{"", "a", "both", "last"}));
    EXPECT_EQ(record.column_upper, (doubles{1, 1, 2, 4}));
    EXPECT_EQ(record.column_integral, (std::vector<char>{1, 1, 0, 0}));
    EXPECT_EQ(record.column_objective, (doubles{0, 0, 1, 1}));
    EXPECT_EQ(record.row_names, (strings{"second", ""}));
    EXPECT_EQ(record.row_start, (std::vector<std::size_t>{0, 3, 5}));
    EXPECT_EQ(record.row_column, (std::vector<int>{0, 1, 2, 0, 1}));
    EXPECT_EQ(record.row_value, (doubles{1, 2, -2, 1, 1}));
    EXPECT_EQ(record.row_upper, (doubles{-2, 1}));
    EXPECT_EQ(record.row_lower, (doubles{-infinity, -infinity}));
    EXPECT_EQ(record.objective_constant, 0.5);
}

TEST_F(modelling, a_record_follows_every_change_since_the_one_before) {
    const IloNumVarArray variables(env, 1);
    const IloNumVarArray same = variables;
    const IloNumVar a = binary();
    const IloNumVar b = binary("b");
    same.add(a);
    model.add(a <= 1.0);
    IloCplex cplex(model);
    EXPECT_EQ(cplex.record().row_value, doubles{1});
    variables[1].setName("renamed");
    model.add(a <= 2 * b);
    for (const double priority : {7.0, 0.0}) {
        cplex.setPriority(b, priority);
        const model_record record = cplex.record();
        EXPECT_EQ(record.column_names, (strings{"renamed", "b"}));
        EXPECT_EQ(record.column_priority, (doubles{0, priority}));
        EXPECT_EQ(record.row_column, (std::vector<int>{0, 0, 1}));
        EXPECT_EQ(record.row_value, (doubles{1, 1, -2}));
    }
    const IloObjective objective(env, 0.0, IloObjective::Maximize);
    model.add(objective);
    const IloNumVar gain(objective(), 0.0, 1.0, IloNumVar::Float);
    EXPECT_EQ(cplex.record().column_objective, (doubles{0, 0, 1}));
}

TEST_F(modelling, throws_on_misuse) {
    const IloNumVar a = binary();
    const IloNumVar absent = binary();
    model.add(IloObjective(env, 0.0, IloObjective::Maximize));
    model.add(a <= 1.0);
    IloCplex cplex(model);
    const std::function<void()> misuses[] = {
        [&] { model.add(IloObjective(env, 0.0, IloObjective::Maximize)); },  // a second one
        [&] { model.add(IloConstraint()); },
        [&] { model.add(a); },
        [&] { IloExpr(env) += IloNumVar(); },
        [] { 2 * IloNumVar(); },
        [] { IloObjective()(); },
        [] { IloConstraint().setName("x"); },
        [] { IloNumVar().getId(); },
        [&] { cplex.setParam(static_cast<IloCplex::IntParam>(99), 1); },
        [&] { cplex.setParam(static_cast<IloCplex::NumParam>(99), 1.0); },
        [&] { cplex.setPriority(IloNumVar(), 1.0); },
        [&] { cplex.setPriority(absent, std::nan("")); },
        [&] { cplex.setParam(IloCplex::RootAlg, 99); },
        [&] { cplex.setParam(IloCplex::EpGap, -0.1); },
        [&] { cplex.getValue(absent); },
        [&] { cplex.getObjValue(); },  // the last two until it is solved
        [&] { cplex.getValue(a); },
    };
    for (std::size_t i = 0; i < std::size(misuses); ++i) {
        EXPECT_THROW(misuses[i](), IloException) << i;
    }
    EXPECT_NO_THROW(cplex.setPriority(absent, 1.0)) << "it may come into the model yet";
    EXPECT_EQ(cplex.getStatus(), IloCplex::Unknown);
    ASSERT_TRUE(cplex.solve());
    EXPECT_NO_THROW(cplex.getValue(a));
    model.add(absent <= 1.0);
    EXPECT_THROW(cplex.getValue(absent), IloException);
}
