// The modelling operations: what they put into the record, and their misuse.
#include <gtest/gtest.h>

#include "solver/concert.hpp"

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
    sum += sum;  // no longer the one in the first row
    sum += IloExpr(env, 3.0);
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
    const IloNumVar a = binary("a");
    const IloNumVar b = binary("b");
    model.add(a <= 1.0);
    IloCplex cplex(model);
    EXPECT_EQ(cplex.record().row_value, doubles{1});

    IloExpr sum = a + b;
    sum += IloExpr(env, 3.0);
    model.add(a <= 2 * b);
    model.add(b <= sum);
    a.setName("renamed");
    cplex.setPriority(b, 7.0);
    const IloObjective objective(env, 0.0, IloObjective::Maximize);
    model.add(objective);
    model_record record = cplex.record();
    EXPECT_EQ(record.column_names, (strings{"renamed", "b"}));
    EXPECT_EQ(record.column_priority, (doubles{0, 7}));
    EXPECT_EQ(record.row_start, (std::vector<std::size_t>{0, 1, 3, 5}));
    EXPECT_EQ(record.row_column, (std::vector<int>{0, 0, 1, 0, 1}));
    EXPECT_EQ(record.row_value, (doubles{1, 1, -2, -1, 0}));
    EXPECT_EQ(record.row_upper, (doubles{1, 0, 3}));

    const IloNumVar gain(objective(), 0.0, 1.0, IloNumVar::Float);
    cplex.setPriority(b, 0.0);
    record = cplex.record();
    EXPECT_EQ(record.column_objective, (doubles{0, 0, 1}));
    EXPECT_EQ(record.column_priority, (doubles{0, 0, 0}));
}

TEST_F(modelling, handles_share_what_they_stand_for) {
    const IloNumVarArray variables(env, 1);
    const IloNumVarArray same = variables;
    const IloNumVar made = binary("made");
    same.add(made);
    ASSERT_EQ(variables.getSize(), 2);
    variables[1].setName("renamed");
    EXPECT_STREQ(made.getName(), "renamed");
    EXPECT_LT(variables[0].getId(), made.getId());

    const IloExpr sum(made);
    IloExpr shared = sum;
    shared += made;
    model.add(sum <= 1.0);
    model.add(sum + sum <= 1.0);
    EXPECT_EQ(IloCplex(model).record().row_value, (doubles{2, 4}));
}

TEST_F(modelling, throws_on_misuse) {
    const IloObjective objective(env, 0.0, IloObjective::Maximize);
    model.add(objective);
    EXPECT_THROW(model.add(IloObjective(env, 0.0, IloObjective::Maximize)), IloException);
    EXPECT_THROW(model.add(IloConstraint()), IloException);
    EXPECT_THROW(model.add(binary()), IloException);
    EXPECT_THROW(IloExpr(env) += IloNumVar(), IloException);
    EXPECT_THROW(2 * IloNumVar(), IloException);
    EXPECT_THROW(IloObjective()(), IloException);
    EXPECT_THROW(IloConstraint().setName("x"), IloException);
    EXPECT_THROW(IloNumVar().getId(), IloException);

    const IloNumVar a = binary();
    const IloNumVar absent = binary("absent");
    model.add(IloExpr(a) <= 1.0);
    IloCplex cplex(model);
    EXPECT_THROW(cplex.setParam(static_cast<IloCplex::IntParam>(99), 1), IloException);
    EXPECT_THROW(cplex.setParam(static_cast<IloCplex::NumParam>(99), 1.0), IloException);
    EXPECT_THROW(cplex.setPriority(IloNumVar(), 1.0), IloException);
    EXPECT_NO_THROW(cplex.setPriority(absent, 1.0)) << "it may come into the model yet";
    EXPECT_EQ(cplex.getStatus(), IloCplex::Unknown);
    EXPECT_THROW(cplex.getObjValue(), IloException);
    EXPECT_THROW(cplex.getValue(a), IloException);
    ASSERT_TRUE(cplex.solve());
    EXPECT_NO_THROW(cplex.getValue(a));
    const IloNumVar late = binary();
    model.add(IloExpr(late) <= 1.0);
    EXPECT_THROW(cplex.getValue(late), IloException);
    EXPECT_THROW(cplex.getValue(absent), IloException);
}
