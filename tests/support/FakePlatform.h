// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AddressOpener.h"
#include "platform/DocumentPicker.h"
#include "platform/FileOpener.h"
#include "platform/Fonts.h"
#include "platform/InterfaceStyle.h"
#include "platform/MailComposer.h"
#include "platform/MessageCapability.h"
#include "platform/Platform.h"
#include "platform/PrintPanel.h"
#include "platform/Resources.h"
#include "platform/ShareSheet.h"
#include "platform/StoreReview.h"
#include "platform/WindowActivation.h"

#include <QMap>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

#include <optional>

namespace giggle {

class FakeInterfaceStyle : public InterfaceStyle {
public:
    [[nodiscard]] Style current() const override { return m_style; }

    [[nodiscard]] bool hasHighContrast() const override { return m_hasHighContrast; }

    [[nodiscard]] bool reducesMotion() const override { return m_reducesMotion; }

    void change(Style style)
    {
        m_style = style;
        emit changed();
    }

    void change(bool hasHighContrast, bool reducesMotion)
    {
        m_hasHighContrast = hasHighContrast;
        m_reducesMotion = reducesMotion;
        emit changed();
    }

private:
    bool m_hasHighContrast = false;
    bool m_reducesMotion = false;
    Style m_style = Style::Light;
};

/// Knows the fonts of `installed` and no others.
class FakeFonts : public Fonts {
public:
    [[nodiscard]] std::optional<QFont> font(const QString& name, double pointSize) override
    {
        if (!installed.contains(name))
            return std::nullopt;
        QFont font(name);
        font.setPixelSize(qMax(1, qRound(pointSize)));
        return font;
    }

    [[nodiscard]] QStringList families() override { return installed; }

    QStringList installed{QStringLiteral("Arial"), QStringLiteral("Courier New")};
};

/// Has the resources of `paths`, by "<name>.<type>".
class FakeResources : public Resources {
public:
    [[nodiscard]] std::optional<QString> pathForResource(const QString& name,
                                                         const QString& type) const override
    {
        const auto found = paths.constFind(name + u'.' + type);
        return found == paths.constEnd() ? std::nullopt : std::optional(*found);
    }

    QMap<QString, QString> paths;
};

/// Grants every request, and leaves it to the window to show the invitation.
class FakeStoreReview : public StoreReview {
public:
    [[nodiscard]] int systemMajorVersion() const override { return majorVersion; }

    [[nodiscard]] std::vector<Scene> connectedScenes() const override { return scenes; }

    void requestReview() override { grant(std::nullopt); }

    void requestReviewInScene(const Scene& scene) override { grant(scene.identifier); }

    int majorVersion = 14;
    std::vector<Scene> scenes{{.identifier = 1, .activationState = ActivationState::ForegroundActive}};
    std::vector<std::optional<int>> requests; ///< The scene that each request named, if it named one.

private:
    void grant(std::optional<int> scene)
    {
        requests.push_back(scene);
        emit invitationRequested();
    }
};

class FakeAddressOpener : public AddressOpener {
public:
    [[nodiscard]] bool open(const QUrl& address) override
    {
        opened.append(address);
        return canOpen;
    }

    bool canOpen = true;
    QList<QUrl> opened;
};

class FakeMailComposer : public MailComposer {
public:
    [[nodiscard]] bool canSendMail() const override { return canSend; }

    void present(const Mail& mail, std::function<void(const QString&)>) override
    {
        presented.push_back(mail);
    }

    bool canSend = true;
    std::vector<Mail> presented;
};

class FakeMessageCapability : public MessageCapability {
public:
    [[nodiscard]] bool canSendText() const override { return canSend; }

    bool canSend = true;
};

class FakeFileOpener : public FileOpener {
public:
    [[nodiscard]] bool canOpen(const QString&) const override { return true; }

    void open(const QString& path, std::function<void(const QString&)> whatToDo) override
    {
        opened.append(path);
        finished = std::move(whatToDo);
    }

    QStringList opened;
    std::function<void(const QString&)> finished; ///< what the last caller waits for
};

/// Shows no dialog: a test answers the last request by `answer`.
class FakeDocumentPicker : public DocumentPicker {
public:
    void pickDocument(Answer whatToDo) override { answer = std::move(whatToDo); }

    void pickPlace(const QString& suggestedName, Answer whatToDo) override
    {
        suggestedNames.append(suggestedName);
        answer = std::move(whatToDo);
    }

    Answer answer;
    QStringList suggestedNames;
};

/// Writes down what it was opened for.
class FakeShareSheet : public ShareSheet {
public:
    struct Request {
        std::vector<SharedItem> items;
        std::set<ShareActivity> excluded;
    };

    void present(std::vector<SharedItem> items, const std::set<ShareActivity>& excluded) override
    {
        presented.push_back({std::move(items), excluded});
    }

    std::vector<Request> presented;
};

/// Writes down what it was opened for; a test calls `finished` of the last request.
class FakePrintPanel : public PrintPanel {
public:
    using Finished = std::function<void(const PrintOutcome&)>;

    struct Request {
        QString text;
        Finished finished;
        bool isForPdf = false;
    };

    void present(AttributedText text, const QString&, Finished finished) override
    {
        presented.push_back({text.plainText(), std::move(finished)});
    }

    void makePdf(AttributedText text, const QString&, Finished finished) override
    {
        presented.push_back({text.plainText(), std::move(finished), true});
    }

    std::vector<Request> presented;
};

/// A system that does what a test tells it.
struct FakePlatform {
    FakeInterfaceStyle interfaceStyle;
    FakeFonts fonts;
    FakeResources resources;
    WindowActivation windowActivation;
    FakeStoreReview storeReview;
    FakeAddressOpener addressOpener;
    FakeMailComposer mailComposer;
    FakeMessageCapability messageCapability;
    FakeFileOpener fileOpener;
    FakeDocumentPicker documentPicker;
    FakeShareSheet shareSheet;
    FakePrintPanel printPanel;
    QTemporaryDir temporaryFolder;
    const QString temporaryPath = temporaryFolder.path();
    const QString documentsPath = temporaryFolder.filePath(QStringLiteral("documents"));
    Platform platform{interfaceStyle, fonts,        resources,         windowActivation, storeReview,
                      addressOpener,  mailComposer, messageCapability, fileOpener,       &documentPicker,
                      &shareSheet,    &printPanel,  temporaryPath,     documentsPath};
};

} // namespace giggle
