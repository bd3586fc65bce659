// SPDX-License-Identifier: MIT
#include "SetupRemarks.h"

#include "HardeningLaw.h"
#include "ProcessSetup.h"
#include "SetupFields.h"

#include <BVFormatter.h>

#include <QCoreApplication>

#include <cmath>

namespace {

constexpr double s_tolerance = 0.01; // relative, of values that follow from others

QString tr(const char *text)
{
    return QCoreApplication::translate("SetupRemarks", text);
}

/// A value of a set-up.
struct Value
{
    Value(const ProcessSetup &setup, const char *group, const char *key)
        : field(SetupFields::findField(SetupFields::findGroup(QLatin1String(group)),
                                       QLatin1String(key)))
        , number(setup.number(field))
    {
    }

    bool isGiven() const { return number != FieldValues::noValue(); }
    QString text(double value) const
    {
        return BVFormatter::toStringMeasurement(value, SetupFields::field(field).unitText());
    }

    int field;
    double number;
};

bool isOff(double value, double expected)
{
    return std::abs(value - expected) > s_tolerance * std::abs(expected);
}

void checkYieldStress(const ProcessSetup &setup, std::vector<SetupRemark> &remarks)
{
    const Value stress(setup, "material", "yieldStress");
    const HardeningLaw law(setup);
    if (stress.isGiven() && law.isComplete() && isOff(stress.number, law.stress(0.0)))
        remarks.push_back({stress.field, tr("The yield stress is not the one of the hardening law, "
                                            "which begins at %1.")
                                             .arg(stress.text(law.stress(0.0)))});
}

void checkTools(const ProcessSetup &setup, std::vector<SetupRemark> &remarks)
{
    const Value punch(setup, "tools", "punchWidth");
    const Value die(setup, "tools", "dieOpening");
    const Value gap(setup, "tools", "gap");
    if (!punch.isGiven() || !die.isGiven())
        return;
    const double room = (die.number - punch.number) / 2.0;
    if (room <= 0.0)
        remarks.push_back({die.field, tr("The punch does not fit into the die opening.")});
    else if (gap.isGiven() && isOff(gap.number, room))
        remarks.push_back({gap.field, tr("The gap is not the one that punch and die leave, which "
                                         "is %1.")
                                          .arg(gap.text(room))});
}

void checkBlank(const ProcessSetup &setup, std::vector<SetupRemark> &remarks)
{
    const Value die(setup, "tools", "dieOpening");
    for (const char *key : {"length", "width"}) {
        const Value side(setup, "blank", key);
        if (side.isGiven() && die.isGiven() && side.number <= die.number)
            remarks.push_back({side.field, tr("%1: the blank does not cover the die opening.")
                                               .arg(SetupFields::field(side.field).labelText())});
    }
}

} // namespace

std::vector<SetupRemark> SetupRemarks::of(const ProcessSetup &setup)
{
    std::vector<SetupRemark> remarks;
    checkBlank(setup, remarks);
    checkYieldStress(setup, remarks);
    checkTools(setup, remarks);
    return remarks;
}
