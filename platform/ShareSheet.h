// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <set>
#include <variant>

namespace giggle {

/// What can be done with something that is shared.
enum class ShareActivity { Copy, Mail, Message, Print, SaveAsPdf, SaveToFiles, OpenWith };

/// The one item that a sheet is opened for.
struct SharedText {
    QString text;
};

struct SharedFile {
    QString path; ///< outlives the sheet
};

using SharedItem = std::variant<SharedText, SharedFile>;

/// The sheet from which the user chooses what becomes of something. Lives in the main thread.
class ShareSheet {
public:
    ShareSheet() = default;
    ShareSheet(const ShareSheet&) = delete;
    ShareSheet& operator=(const ShareSheet&) = delete;
    virtual ~ShareSheet() = default;

    /// Offers every activity that works on this device for the item and is not @p excluded. A sheet that is
    /// open already stays.
    virtual void present(SharedItem item, const std::set<ShareActivity>& excluded) = 0;
};

} // namespace giggle
