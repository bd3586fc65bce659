// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QHash>
#include <QList>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

/// A widget as a sheet's selectors see it.
struct SheetElement
{
    QStringList classes; ///< its class first, then what that derives from
    QString id;          ///< the object name
    QSet<QString> flags; ///< properties that are "true"
    QSet<QString> states;
};

/// Reads an expanded sheet and answers which declarations hold for a widget, with the toolkit's
/// rules of weight and order, but without the toolkit: an independent witness of what a sheet says.
class SheetReader
{
public:
    explicit SheetReader(const QString &sheet);

    /// The value of @p property for the last element of @p path (outermost first), or for its
    /// sub-control @p subControl; empty if no rule names one.
    QString value(const QVector<SheetElement> &path, const QString &subControl, const QString &property) const;
    /// The same as a colour, with "transparent" and a missing value as an invalid colour.
    QColor color(const QVector<SheetElement> &path, const QString &subControl, const QString &property) const;

    QStringList properties() const { return m_declarations.keys(); }
    /// The boolean properties of widgets that selectors ask for.
    QSet<QString> flags() const { return m_flags; }
    int ruleCount() const { return m_ruleCount; }

private:
    struct Compound
    {
        QString element;
        QString id;
        QString subControl;
        QList<QPair<QString, QString>> attributes;
        QStringList states;
        bool child = false; // directly in what stands before it
    };
    struct Declaration
    {
        QVector<Compound> selector;
        QString value;
        int weight = 0;
    };

    static Compound parsedCompound(const QString &text);
    static QVector<Compound> parsedSelector(const QString &text);
    static bool matches(const Compound &compound, const SheetElement &element);
    static bool matches(const QVector<Compound> &selector, const QVector<SheetElement> &path);
    static int weight(const QVector<Compound> &selector);

    QHash<QString, QVector<Declaration>> m_declarations; // by property, in the order of the sheet
    QSet<QString> m_flags;
    int m_ruleCount = 0;
};
