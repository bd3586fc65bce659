// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QValidator>

#include <optional>
#include <utility>

class BVDoubleSpinBox;
class BVFormatter;

/// How a spin box judges, reads and mends the texts typed into it.
///
/// The texts are without prefix and suffix unless it says so.
class BVSpinBoxTexts
{
public:
    explicit BVSpinBoxTexts(const BVDoubleSpinBox &box);

    /// A text without prefix and suffix; @p prefixLength is what was taken from its front.
    QString stripped(const QString &whole, int *prefixLength = nullptr) const;
    /// @p text with the prefix and the suffix that @p original has.
    QString withAffixes(const QString &original, const QString &text) const;
    /// The decimal point behind the cursor that the one before it takes the place of; -1 if none
    /// does.
    static int replacedPoint(const QString &text, int cursor);

    /// The value of a text; @p ok tells whether it reads, in range or not.
    double value(const QString &typed, bool &ok) const;
    /// The same, on the limit for a text that stands for it.
    double validValue(const QString &typed, bool &ok) const;
    QValidator::State judge(const QString &typed) const;
    /// Whether the text is acceptable, or is when it is mended.
    bool isMendable(const QString &typed) const;
    /// The text in full, moved into the range as the box's settings say; one that does not read as
    /// it is.
    QString mended(const QString &typed) const;

private:
    QValidator::State judgeWrapping(const QString &complete) const;
    std::optional<double> limitOf(double value, const QString &typed) const;
    std::pair<QString, QString> partsOf(const QString &text) const;
    QString preciseText(double value, const QString &otherwise) const;
    QString textInRange(double value, const QString &text) const;

    const BVDoubleSpinBox &m_box;
    const BVFormatter &m_formatter;
};
