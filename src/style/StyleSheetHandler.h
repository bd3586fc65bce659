// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"
#include "style/StyleSheetDiagnostic.h"

#include <QByteArray>
#include <QDir>
#include <QHash>
#include <QList>
#include <QMap>
#include <QPalette>
#include <QString>
#include <QStringList>

#include <type_traits>

class QStyle;

namespace Brimvale {

/// Assembles one plain Qt style sheet from a top-level sheet and the sheets it includes.
///
/// A sheet is UTF-8 text in Qt's style sheet language with five additions:
///
///  - `#include "path"` at the start of a line puts in another sheet, between two comments that
///    name the directive.
///  - `#define name value` makes the name stand for the value (one word) in all lines that follow,
///    in the included sheets as well. Names are replaced as plain text, case-sensitively, the last
///    name of the alphabet first, so that a longer name wins over its own beginning. A name such as
///    `palette(link)` sets a colour of getPalette() instead.
///  - Besides comments in the CSS manner, "//" comments out the rest of a line, also within quotes
///    and addresses, and "<!--" everything up to "-->". A comment that is not closed reaches to the
///    end of its file; a closing mark on its own stays in the text.
///  - Lines between `<@:state` and `@>`, both at the start of a line, belong to a suffix block:
///    every selector in them gets the suffix ":state". Declarations, and what stands in brackets,
///    are left alone, also in a rule that begins before the block. In a declaration an apostrophe
///    may stand alone. A block ends with its file at the latest and does not reach into the files
///    included in it.
///  - Empty lines are dropped.
///
/// A define that the application has set, a user define, replaces the value at every `#define` of
/// that name. It has no effect in a sheet that does not define the name.
///
/// Expansion is lazy: any call that asks for something that only the expanded sheet can tell
/// expands it first if it is out of date. It ends for every input: an include that would close a
/// circle is left out, and a sheet that multiplies itself beyond any reasonable size stops growing.
/// diagnostics() tells about those. The log only tells about closing marks without a comment, on
/// debug level.
///
/// The handler has no effect on the application by itself: what it makes goes to
/// QApplication::setStyleSheet() and QApplication::setPalette(). It is a value that can be copied
/// and moved.
class BVWIDGETS_EXPORT StyleSheetHandler
{
public:
    /// The direction of replacePath().
    enum StylePathType {
        ResourcePath, ///< to a path in the resources, ":/..."
        AbsolutePath, ///< to an absolute path in the base directory
    };

    /// The top-level sheet that load() takes.
    static const QString s_defaultCSS;

    /// Makes a handler without a sheet. With @p resourceMode it reads from the application's
    /// resources, and its base directory is "../Resources/" seen from the folder of the program;
    /// otherwise it reads from the base directory, at first the current one.
    explicit StyleSheetHandler(bool resourceMode);
    /// Makes a handler that reads files. If @p path is a directory or ends in a slash, it becomes
    /// the base directory. Otherwise its folder does, and the file becomes the top-level sheet: by
    /// its name alone, so that an include in that folder means the same part, or by its whole path
    /// if it is a resource.
    explicit StyleSheetHandler(const QString &path);
    /// The same for a path in UTF-8. With these two, a literal, a character array and a byte array
    /// are paths as well; a pointer to anything else is refused instead of being a resource mode.
    explicit StyleSheetHandler(const char *path);
    explicit StyleSheetHandler(const QByteArray &path);
    template <typename T, std::enable_if_t<!std::is_same_v<std::remove_cv_t<T>, char>, int> = 0>
    explicit StyleSheetHandler(T *) = delete;
    StyleSheetHandler(const StyleSheetHandler &other);
    StyleSheetHandler(StyleSheetHandler &&other) noexcept;
    StyleSheetHandler &operator=(const StyleSheetHandler &other);
    StyleSheetHandler &operator=(StyleSheetHandler &&other) noexcept;
    virtual ~StyleSheetHandler();

    /// The default sheet, read from the resources and expanded.
    static QString load();

    /// Forgets the sheet and its parts and makes @p path the top-level sheet. Like every part, it
    /// is read by the first call that needs it. User defines stay. An empty path leaves the handler
    /// without a sheet.
    void load(const QString &path);
    /// Loads the top-level sheet once more, so that it and everything it includes are read anew and
    /// texts set by setPart() are dropped.
    void reload();

    /// Sets the base directory, in which relative paths are looked up when reading files. What has
    /// been read already stays until reload().
    void setPath(const QString &path);
    /// The path of the base directory without a slash at its end: as it was given to setPath() or
    /// to the constructor, or the absolute path of the folder of the file given to the constructor.
    QString getPath() const;

    /// The expanded sheet; empty without a top-level sheet.
    QString getStyleSheet();
    /// The same text as getStyleSheet().
    QString getReduced();

    /// The paths of all sheets that take part: the top-level one first, then the included ones in
    /// the order in which they are met first, each as it is written in its include.
    QStringList getPartNames();
    /// The unexpanded text of a part; empty for a name that is none.
    QString getPart(const QString &name);
    /// Replaces the text of a part until the next load; ignored for a name that is none.
    void setPart(const QString &name, const QString &text);

    /// Writes the text of a part to its file: a resource path to the same path below the base
    /// directory, any other path to where reading files looks for it. Missing folders are made; an
    /// existing file is replaced whole or not at all. Returns false if the name is no part, if the
    /// part could not be read and was not set, or if the file cannot be written.
    bool savePartToFile(const QString &name);
    /// Writes the expanded sheet to a file in the same way; a relative @p fileName is taken from
    /// the current directory.
    bool save(const QString &fileName);

    /// Sets the value that @p name gets instead of the one in the sheets.
    void setUserDefine(const QString &name, const QString &value);
    /// The value that @p name has at the end of the sheet; if no sheet defines it, the
    /// application's own value for it, or an empty text.
    QString getDefined(const QString &name);

    /// Sets the user defines of the five font sizes around @p n, the normal size in points. Below 4
    /// points the smaller ones stop at 1 point; below 1 point the call is ignored.
    void setDefinedFontSize(int n);
    /// Chooses lighter error colours, which suit a dark display. Returns whether that changed
    /// anything.
    bool setUseLightVersion(bool on);

    /// The sheet text @p text with the value of each `#define` of @p name replaced by @p value; the
    /// rest of those lines stays, and so do all comments, even within the old value. Defines that
    /// are commented out are none. A value that is not one word or holds a comment mark, or a name
    /// that is not defined there, leaves the text unchanged.
    static QString replaceDefine(const QString &text, const QString &name, const QString &value);
    /// Rewrites one path. A resource path, beginning with ":" or ":/", becomes the absolute path
    /// below the base directory, or the other way round. A path of another kind is returned
    /// unchanged.
    QString replacePath(const QString &path, StylePathType type) const;

    /// The standard palette of the base style with the colours that the sheets define, in all
    /// colour groups. The palette that the application has set has no part in it.
    QPalette getPalette();
    /// The style that the sheets are made for, the same on every platform. It belongs to the
    /// application; null while there is none.
    QStyle *getBaseStyle() const;

    /// What the expansion found, in the order met; a finding is listed once.
    QList<StyleSheetDiagnostic> diagnostics();

protected:
    /// Reads a sheet whole. In resource mode @p path names a resource, with or without the leading
    /// ":/". Otherwise a relative path is looked up in the base directory, an absolute one is taken
    /// as it stands, and so is a resource path unless the base directory has that file. Returns a
    /// null text if there is no such file, and an empty one that is not null for an empty file.
    virtual QString readFromFile(const QString &path);

private:
    void expandIfDirty();
    QString part(const QString &path);
    QString filePath(const QString &path) const;
    QPalette basePalette() const;

    bool m_lightVersion = false;
    bool m_resourceMode = false;
    bool m_dirty = false;
    QDir m_baseDirectory;
    QString m_styleSheet;
    QHash<QString, QString> m_parts;
    QMap<QString, QString> m_defines;
    QHash<QString, QString> m_userDefines;
    QStringList m_partNames;
    QPalette m_palette;
    QList<StyleSheetDiagnostic> m_diagnostics;
};

} // namespace Brimvale
