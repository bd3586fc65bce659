// SPDX-License-Identifier: MIT
#include "SheetReader.h"

#include <QRegularExpression>

namespace {

QVector<QPair<QString, QString>> parsedDeclarations(const QString &block)
{
    QVector<QPair<QString, QString>> result;
    const QStringList lines = block.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const int colon = line.indexOf(QLatin1Char(':'));
        if (colon > 0)
            result.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    }
    return result;
}

QColor parsedColor(const QString &text)
{
    static const QRegularExpression s_rgba(QStringLiteral("^rgba\\((\\d+),(\\d+),(\\d+),(\\d+)\\)$"));
    const QRegularExpressionMatch match = s_rgba.match(text);
    if (match.hasMatch())
        return QColor(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(), match.captured(4).toInt());
    return text == QLatin1String("transparent") ? QColor() : QColor(text);
}

} // namespace

SheetReader::SheetReader(const QString &sheet)
{
    static const QRegularExpression s_comment(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression s_rule(QStringLiteral("([^{}]+)\\{([^{}]*)\\}"));
    const QString text = QString(sheet).remove(s_comment);
    for (auto it = s_rule.globalMatch(text); it.hasNext(); ++m_ruleCount) {
        const QRegularExpressionMatch match = it.next();
        const auto declarations = parsedDeclarations(match.captured(2));
        const QStringList selectors = match.captured(1).split(QLatin1Char(','));
        for (const QString &words : selectors) {
            const QVector<Compound> selector = parsedSelector(words);
            for (const Compound &part : selector) {
                for (const auto &attribute : part.attributes)
                    m_flags.insert(attribute.first);
            }
            for (const auto &line : declarations)
                m_declarations[line.first].append({selector, line.second, weight(selector)});
        }
    }
}

int SheetReader::weight(const QVector<Compound> &selector)
{
    int result = 0;
    for (const Compound &part : selector)
        result += (part.element.isEmpty() ? 0 : 1) + (part.id.isEmpty() ? 0 : 0x100) +
                  0x10 * (part.states.size() + part.attributes.size() + (part.subControl.isEmpty() ? 0 : 1));
    return result;
}

SheetReader::Compound SheetReader::parsedCompound(const QString &text)
{
    static const QRegularExpression s_piece(QStringLiteral("(::|:|#|)([!\\w-]+)|\\[(\\w+)=\"([^\"]*)\"\\]"));
    Compound result;
    for (auto it = s_piece.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QString mark = match.captured(1);
        if (!match.captured(3).isEmpty())
            result.attributes.append({match.captured(3), match.captured(4)});
        else if (mark == QLatin1String("::"))
            result.subControl = match.captured(2);
        else if (mark == QLatin1String(":"))
            result.states.append(match.captured(2));
        else
            (mark.isEmpty() ? result.element : result.id) = match.captured(2);
    }
    return result;
}

QVector<SheetReader::Compound> SheetReader::parsedSelector(const QString &text)
{
    QVector<Compound> result;
    bool child = false;
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    for (const QString &word : words) {
        if (word == QLatin1String(">")) {
            child = true;
            continue;
        }
        result.append(parsedCompound(word));
        result.last().child = child;
        child = false;
    }
    return result;
}

bool SheetReader::matches(const Compound &compound, const SheetElement &element)
{
    if (!compound.element.isEmpty() && !element.classes.contains(compound.element))
        return false;
    if (!compound.id.isEmpty() && compound.id != element.id)
        return false;
    for (const auto &attribute : compound.attributes) {
        if (attribute.second != QLatin1String("true") || !element.flags.contains(attribute.first))
            return false;
    }
    for (const QString &state : compound.states) {
        const bool negated = state.startsWith(QLatin1Char('!'));
        if (element.states.contains(negated ? state.mid(1) : state) == negated)
            return false;
    }
    return true;
}

bool SheetReader::matches(const QVector<Compound> &selector, const QVector<SheetElement> &path)
{
    int at = path.size() - 1;
    int part = selector.size() - 1;
    if (!matches(selector.at(part), path.at(at)))
        return false;
    // No sheet mixes the two combinators in a way that needs to go back and try another ancestor.
    for (bool child = selector.at(part).child; --part >= 0; child = selector.at(part).child) {
        --at;
        while (!child && at >= 0 && !matches(selector.at(part), path.at(at)))
            --at;
        if (at < 0 || !matches(selector.at(part), path.at(at)))
            return false;
    }
    return true;
}

QString SheetReader::value(const QVector<SheetElement> &path, const QString &subControl, const QString &property) const
{
    QString result;
    int weight = -1;
    const QVector<Declaration> declarations = m_declarations.value(property);
    for (const Declaration &declaration : declarations) {
        if (declaration.weight < weight || declaration.selector.last().subControl != subControl || !matches(declaration.selector, path))
            continue;
        result = declaration.value;
        weight = declaration.weight;
    }
    return result;
}

QColor SheetReader::color(const QVector<SheetElement> &path, const QString &subControl, const QString &property) const
{
    return parsedColor(value(path, subControl, property));
}
