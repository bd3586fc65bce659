// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class FieldValues;

/// One group of the process set-up: a section of the file and a box of the form.
struct SetupGroup
{
    const char *key;   ///< the element of the file
    const char *title; ///< with the mnemonic that leads to the group's first field
};

/// One field of a process set-up or of an operation. The pages, the files and the model all follow
/// from the tables of these.
struct SetupField
{
    enum Kind { Number, Text };

    Kind kind;
    int group;          ///< index of the group; 0 in tables without groups
    const char *key;    ///< the element of the file
    const char *label;  ///< English, to be translated in the context "SetupFields"
    const char *symbol; ///< the usual symbol; may be empty
    const char *unit;   ///< the unit in which the value is held; empty for none
    double minimum;     ///< in that unit
    double maximum;     ///< in that unit
    int extraDecimals;  ///< decimals beyond those that are usual for the unit; may be negative
    const char *toolTip;
    double spinStep = 0.0; ///< of the spin box, in the shown unit; 0 for a plain edit

    QString unitText() const { return QString::fromUtf8(unit); }
    QString keyText() const { return QString::fromLatin1(key); }
    QString labelText() const;
};

/// A slider beside the edit of a field.
struct SetupSlider
{
    enum Kind {
        Admissible,  ///< with a range that the user may change
        Design,      ///< with the curve of a design variable and its best value
        Logarithmic, ///< each decade as long as the others
    };

    Kind kind;
    int group;
    const char *key; ///< of the field
    double minimum;  ///< in the field's unit, as all values here
    double maximum;
    int steps;    ///< from the one to the other
    double lower; ///< of the admissible range; where the curve is one deviation below its mean
    double upper; ///< of the admissible range; where the curve is one deviation above its mean
    double best;  ///< of a design variable
};

namespace SetupFields {

const std::vector<SetupGroup> &groups();
/// All fields, group by group, in the order of the form.
const std::vector<SetupField> &fields();
int count();
/// The slider of a field of that table; null for none.
const SetupSlider *slider(const SetupField &field);
const SetupField &field(int index);

/// The index of the group of that key, or -1.
int findGroup(const QString &key);
/// The index of the field of that key in the group, or -1.
int findField(int group, const QString &key);

/// The same in another table.
int find(const std::vector<SetupField> &fields, int group, const QString &key);
/// The labels of the fields of a table that have no value.
QStringList missing(const std::vector<SetupField> &fields, const FieldValues &values);

/// A text of the table in the user's language.
QString translated(const char *text);

} // namespace SetupFields
