// SPDX-License-Identifier: MIT
#include "app/UserInterface.h"

#include "platform/WindowActivation.h"
#include "store/FatalError.h"

#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(GiggleArchivesPlugin)

namespace giggle {

namespace {

const QUrl MainPage(QStringLiteral("qrc:/qt/qml/GiggleArchives/Main.qml"));

void bringToFront(QWindow& window)
{
    if (window.windowStates().testFlag(Qt::WindowMinimized))
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.requestActivate();
}

} // namespace

UserInterface::UserInterface(AppDelegate& appDelegate, Preferences& userDefaults, Platform platform)
    : m_platform(platform), m_navigation(m_storyboard), m_environment{appDelegate,  userDefaults, m_selection,
                                                                      m_navigation, m_mainQueue,  m_platform},
      m_appearance(platform.interfaceStyle),
      m_reviewInvitation(platform.storeReview, platform.addressOpener, m_navigation),
      m_shareSheet(m_platform, m_navigation), m_printPanel(m_platform),
      m_documentOpening(m_navigation, m_selection)
{
    completePlatform();
    m_storyboard.setEnvironment(m_environment);
}

UserInterface::~UserInterface()
{
    m_memory.save();
}

void UserInterface::completePlatform()
{
    if (!m_platform.documentPicker)
        m_platform.documentPicker = &m_documentPicker;
    if (!m_platform.printPanel)
        m_platform.printPanel = &m_printPanel;
    if (!m_platform.shareSheet)
        m_platform.shareSheet = &m_shareSheet;
    // Where none can be made every file in it fails, in words.
    if (m_platform.temporaryFolder.isEmpty())
        m_platform.temporaryFolder =
            m_temporaryFolder.isValid() ? m_temporaryFolder.path() : QStringLiteral("/nonexistent");
    if (m_platform.documentsFolder.isEmpty())
        m_platform.documentsFolder = m_platform.temporaryFolder;
}

QQuickWindow& UserInterface::load()
{
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QVariantMap properties{{QStringLiteral("navigation"), QVariant::fromValue(&m_navigation)},
                           {QStringLiteral("appearance"), QVariant::fromValue(&m_appearance)},
                           {QStringLiteral("reviewInvitation"), QVariant::fromValue(&m_reviewInvitation)},
                           {QStringLiteral("shareSheet"), QVariant::fromValue(&m_shareSheet)},
                           {QStringLiteral("documentPicker"), QVariant::fromValue(&m_documentPicker)},
                           {QStringLiteral("printPanel"), QVariant::fromValue(&m_printPanel)},
                           {QStringLiteral("documentOpening"), QVariant::fromValue(&m_documentOpening)}};
    properties.insert(m_memory.windowProperties());
    m_engine.setInitialProperties(properties);
    m_engine.load(MainPage);
    auto* window = m_engine.rootObjects().isEmpty()
                       ? nullptr
                       : qobject_cast<QQuickWindow*>(m_engine.rootObjects().first());
    if (!window)
        fatalError(QStringLiteral("The main window cannot be loaded."), __FILE__, __LINE__);
    m_memory.follow(*window);
    QObject::connect(&m_platform.windowActivation, &WindowActivation::activationRequested, window,
                     [window] { bringToFront(*window); });
    QObject::connect(&m_platform.windowActivation, &WindowActivation::documentOpened, &m_documentOpening,
                     &DocumentOpening::open);
    return *window;
}

} // namespace giggle
