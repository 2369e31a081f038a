// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <set>
#include <variant>
#include <vector>

namespace giggle {

/// What can be done with something that is shared.
enum class ShareActivity { Copy, Mail, Message, Print, SaveAsPdf, SaveToFiles, OpenWith };

struct SharedText {
    QString text;
};

struct SharedFile {
    QString path; ///< outlives the sheet
};

/// One of the things that a sheet is opened for.
using SharedItem = std::variant<SharedText, SharedFile>;

/// The sheet from which the user chooses what becomes of something. Lives in the main thread.
class ShareSheet {
public:
    ShareSheet() = default;
    ShareSheet(const ShareSheet&) = delete;
    ShareSheet& operator=(const ShareSheet&) = delete;
    virtual ~ShareSheet() = default;

    /// Offers every activity that works on this device for @p items, of which there is at least one,
    /// unless @p excluded names it. A sheet that is open already stays.
    virtual void present(std::vector<SharedItem> items, const std::set<ShareActivity>& excluded) = 0;
};

} // namespace giggle
