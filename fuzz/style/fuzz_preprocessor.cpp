// SPDX-License-Identifier: MIT
#include "style/StyleSheetHandler.h"

#include <QHash>
#include <QList>

#include <cstdlib>

namespace {

// Serves the parts of one input under the names "a", "b", "c" and so on.
class FuzzHandler : public Brimvale::StyleSheetHandler
{
public:
    explicit FuzzHandler(const QList<QString> &parts)
        : StyleSheetHandler(false)
        , m_parts(parts)
    {
        load(QStringLiteral("a"));
    }

protected:
    QString readFromFile(const QString &path) override
    {
        const int index = path.isEmpty() ? -1 : path.at(0).unicode() - 'a';
        return m_parts.value(index); // a null text for a name that is none
    }

private:
    QList<QString> m_parts;
};

void ignoreMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

// Expanding once more must find nothing new.
void expandTwice(FuzzHandler &handler)
{
    const QString text = handler.getStyleSheet();
    const QStringList names = handler.getPartNames();
    const auto diagnostics = handler.diagnostics();
    handler.setUserDefine(QStringLiteral("no name"), QStringLiteral("makes it expand"));
    require(handler.getStyleSheet() == text && handler.getPartNames() == names);
    require(handler.diagnostics() == diagnostics);
}

} // namespace

// The input is a list of texts separated by 0xFF: one line "name=value" for each user define, then
// the parts, the top-level one first.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const auto s_silence = qInstallMessageHandler(ignoreMessage);
    Q_UNUSED(s_silence)
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    const QList<QByteArray> texts = input.split('\xFF');
    QList<QString> parts;
    for (int i = 1; i < texts.size(); ++i)
        parts.append(QString::fromUtf8(texts.at(i)));

    FuzzHandler handler(parts);
    for (const QByteArray &line : texts.first().split('\n')) {
        const int equals = line.indexOf('=');
        if (equals > 0)
            handler.setUserDefine(QString::fromUtf8(line.left(equals)),
                                  QString::fromUtf8(line.mid(equals + 1)));
    }
    expandTwice(handler);
    handler.setPart(QStringLiteral("b"), Brimvale::StyleSheetHandler::replaceDefine(
                                             handler.getPart(QStringLiteral("b")),
                                             QStringLiteral("a"), QStringLiteral("b")));
    expandTwice(handler);
    return 0;
}
