// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace giggle {

/// What a text in the file dialog's name field comes to. The text is a name in the dialog's folder, a path
/// from there or from the root, `~/` and a path from the user's home folder, or an address that begins with
/// `file:`. What is there already under exactly that name comes first. Blanks around a text count only in
/// such a name.
struct DocumentChoice {
    enum class Kind {
        Refused, ///< `problem` says why, in a sentence for the user.
        Folder,  ///< one that can be looked into
        File,
    };

    Kind kind = Kind::Refused;
    QString path; ///< absolute, without `..`
    QString problem;

    /// A file that exists and can be read, or a folder.
    [[nodiscard]] static DocumentChoice toLoad(const QString& text, const QString& folder);

    /// A place where a file can be written, whether or not one is there that it would replace, or a folder.
    [[nodiscard]] static DocumentChoice toSave(const QString& text, const QString& folder);

    /// A folder that can be looked into.
    [[nodiscard]] static DocumentChoice toEnter(const QString& path);
};

/// @p name, or the first of "name 2.txt", "name 3.txt" and so on that is not taken in @p folder.
[[nodiscard]] QString freeName(const QString& name, const QString& folder);

/// How many characters of a name stand before its suffix: what somebody changes who wants another name.
[[nodiscard]] qsizetype stemLength(const QString& name);

} // namespace giggle
