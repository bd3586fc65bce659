// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QFrame>
#include <QStringList>

class BVInfoText;
class QToolButton;

/// An area in a form that tells the user something about it: an icon and one or more messages.
///
/// Each message is a paragraph. Messages wrap and are never cut off: the height follows the width.
/// They can be selected and copied with mouse and keyboard. The area does not show itself when it
/// is given a message; hiding it is up to the program, too, unless it is closable. Assistive
/// technology hears of messages when they appear.
///
/// Sheets select the kind of the area with the property "iconType", by number.
class BVWIDGETS_EXPORT BVInfoArea : public BVStatusControl<QFrame>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES
    Q_PROPERTY(IconType iconType READ iconType WRITE setIconType)
    Q_PROPERTY(QStringList messages READ messages WRITE setMessages)
    Q_PROPERTY(Qt::TextFormat textFormat READ textFormat WRITE setTextFormat)
    Q_PROPERTY(bool detectLinks READ detectLinks WRITE setDetectLinks)
    Q_PROPERTY(bool closable READ isClosable WRITE setClosable)

public:
    enum IconType {
        NoIcon = 0,
        Information = 1,
        Warning = 2,
        Error = 3,
        Question = 4,
    };
    Q_ENUM(IconType)

    explicit BVInfoArea(QWidget *parent = nullptr);

    IconType iconType() const { return m_iconType; }
    /// Sets the icon and the colours that go with it; NoIcon at first. Other numbers are ignored.
    void setIconType(IconType type);

    QStringList messages() const { return m_messages; }
    /// Replaces all messages. Empty ones are left out, equal ones stand once.
    void setMessages(const QStringList &messages);
    void setMessage(const QString &message);
    /// Adds a message below the others, unless it stands there already or is empty.
    void addMessage(const QString &message);
    /// Takes all messages away; the icon type stays.
    void clear();

    Qt::TextFormat textFormat() const { return m_textFormat; }
    /// How messages are read. PlainText at first, which shows what came from a file or a user as it
    /// is; RichText and AutoText are for texts of the program itself. Other formats count as
    /// PlainText.
    void setTextFormat(Qt::TextFormat format);

    bool detectLinks() const { return m_detectLinks; }
    /// Whether web and mail addresses in plain messages are links. Off at first.
    void setDetectLinks(bool detect);

    /// As high as the messages are at the present width, once the area has been laid out.
    QSize sizeHint() const override;

    bool isClosable() const;
    /// Whether the user can close the area, with a button or with Escape. Off at first.
    void setClosable(bool closable);

public Q_SLOTS:
    /// Hides the area as the close button does. The messages stay.
    void dismiss();

Q_SIGNALS:
    /// The area has been closed with dismiss(), by the user or the program.
    void sigClosed();
    /// The user has chosen a link; nothing is opened.
    void sigLinkActivated(const QString &link);
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    class Icon;

    void announce();
    void updateIcon();
    void updateText();

    Icon *m_icon;
    BVInfoText *m_text;
    QToolButton *m_close;
    QStringList m_messages;
    int m_width = -1; // px, as laid out
    IconType m_iconType = NoIcon;
    Qt::TextFormat m_textFormat = Qt::PlainText;
    bool m_detectLinks = false;
};
