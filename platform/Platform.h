// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace giggle {

class AddressOpener;
class DocumentPicker;
class FileOpener;
class Fonts;
class InterfaceStyle;
class MailComposer;
class MessageCapability;
class PrintPanel;
class Printers;
class Resources;
class ShareSheet;
class StoreReview;
class WindowActivation;

/// What the application asks of the system, handed to the screens as one value. It owns nothing: whoever puts
/// it together keeps the objects alive longer than every screen.
struct Platform {
    InterfaceStyle& interfaceStyle;
    Fonts& fonts;
    Resources& resources;
    WindowActivation& windowActivation;
    StoreReview& storeReview;
    AddressOpener& addressOpener;
    MailComposer& mailComposer;
    MessageCapability& messageCapability;
    FileOpener& fileOpener;

    /// @name What the window brings itself where it is left out; screens always find it
    /// @{
    DocumentPicker* documentPicker = nullptr;
    ShareSheet* shareSheet = nullptr;
    PrintPanel* printPanel = nullptr;
    /// A folder for files that other programs are handed, which nobody but the user can look into. It lasts
    /// at least as long as the application.
    QString temporaryFolder = {};
    /// The application's own folder for the user's documents. It may have to be made.
    QString documentsFolder = {};
    /// @}

    /// None where nothing can be printed on: PDF files can still be made.
    Printers* printers = nullptr;
};

} // namespace giggle
