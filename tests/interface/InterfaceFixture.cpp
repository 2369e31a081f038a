// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include "store/PreferenceKeys.h"

#include <QQuickItem>
#include <QTest>

namespace giggle {

namespace {

constexpr int PatienceMilliseconds = 5000;

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        ADD_FAILURE() << message.toStdString();
}

using Visitor = std::function<bool(QAccessibleInterface&)>;

/// Visits what can be seen, parents first, until a visitor returns true.
QAccessibleInterface* visit(QAccessibleInterface* item, const Visitor& visitor)
{
    if (!item || !item->isValid() || item->state().invisible)
        return nullptr;
    if (visitor(*item))
        return item;
    for (int i = 0; i < item->childCount(); ++i)
        if (QAccessibleInterface* found = visit(item->child(i), visitor))
            return found;
    return nullptr;
}

} // namespace

InterfaceFixture::InterfaceFixture(const QString& folder)
    : m_folder(folder.isEmpty() ? m_ownFolder.path() : folder)
{
    qInstallMessageHandler(failOnWarning);
    QAccessible::setActive(true);
    m_system.resources.paths = {
        {QStringLiteral("GiggleArchives.txt"), QStringLiteral(":/resources/GiggleArchives.txt")}};
    openCollection();
}

InterfaceFixture::~InterfaceFixture()
{
    closeWindow();
    qInstallMessageHandler(nullptr);
}

void InterfaceFixture::openCollection()
{
    m_userDefaults.emplace(m_folder + QStringLiteral("/preferences.json"));
    m_appDelegate.emplace(m_folder);
}

void InterfaceFixture::skipSeeding()
{
    userDefaults().setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true);
    userDefaults().synchronize();
}

void InterfaceFixture::openWindow(QSize size)
{
    m_size = size;
    m_interface = std::make_unique<UserInterface>(*m_appDelegate, *m_userDefaults, m_system.platform);
    m_interface->rememberIn(windowMemory());
    m_window = &m_interface->load();
    if (size.isValid())
        m_window->resize(size);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window));
    waitFor(QAccessible::Button, QStringLiteral("Menu"));
}

void InterfaceFixture::openWith(std::initializer_list<JokeValues> jokes, const QString& area)
{
    skipSeeding();
    for (const JokeValues& joke : jokes)
        insertJoke(context(), joke);
    context().save();
    openWindow();
    if (!area.isEmpty())
        openArea(area);
}

void InterfaceFixture::restart()
{
    closeWindow();
    openCollection();
    openWindow(m_size);
}

void InterfaceFixture::closeWindow()
{
    m_window = nullptr;
    m_interface.reset();
    // Rows that waited in a pool are deleted later; their animations must not outlive the script engine.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QAccessibleInterface* InterfaceFixture::find(QAccessible::Role role, const QString& name)
{
    return visit(QAccessible::queryAccessibleInterface(m_window), [&](QAccessibleInterface& item) {
        return item.role() == role && item.text(QAccessible::Name) == name;
    });
}

QStringList InterfaceFixture::names(QAccessible::Role role)
{
    QStringList names;
    visit(QAccessible::queryAccessibleInterface(m_window), [&](QAccessibleInterface& item) {
        if (item.role() == role)
            names << item.text(QAccessible::Name);
        return false;
    });
    return names;
}

QAccessibleInterface* InterfaceFixture::waitFor(QAccessible::Role role, const QString& name)
{
    QAccessibleInterface* found = nullptr;
    const bool isThere = waitUntil([&] { return (found = find(role, name)) != nullptr; });
    EXPECT_TRUE(isThere) << "nothing is called \"" << name.toStdString() << '"';
    return found;
}

bool InterfaceFixture::waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, PatienceMilliseconds);
}

void InterfaceFixture::waitUntilGone(QAccessible::Role role, const QString& name)
{
    EXPECT_TRUE(waitUntil([&] { return !find(role, name); })) << name.toStdString() << " is still there";
}

void InterfaceFixture::waitForFocus(QAccessible::Role role, const QString& name)
{
    const auto hasFocus = [&] {
        QAccessibleInterface* item = find(role, name);
        return item && item->state().focused;
    };
    EXPECT_TRUE(waitUntil(hasFocus)) << name.toStdString() << " has no focus";
}

void InterfaceFixture::waitForRows(const QStringList& expected)
{
    waitUntil([&] { return rows() == expected; });
    EXPECT_EQ(rows(), expected);
}

QString InterfaceFixture::fieldText(const QString& name)
{
    QAccessibleInterface* field = waitFor(QAccessible::EditableText, name);
    if (!field)
        return {};
    return field->textInterface()
        ->text(0, field->textInterface()->characterCount())
        .replace(QChar::ParagraphSeparator, u'\n');
}

void InterfaceFixture::press(QAccessible::Role role, const QString& name)
{
    QAccessibleInterface* item = waitFor(role, name);
    if (!item)
        return;
    QAccessibleActionInterface* actions = item->actionInterface();
    ASSERT_NE(actions, nullptr) << name.toStdString() << " cannot be pressed";
    actions->doAction(QAccessibleActionInterface::pressAction());
}

void InterfaceFixture::pressIfThere(QAccessible::Role role, const QString& name)
{
    if (QAccessibleInterface* item = find(role, name); item && item->actionInterface())
        item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

void InterfaceFixture::focus(QAccessible::Role role, const QString& name)
{
    if (QAccessibleInterface* item = waitFor(role, name))
        item->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
}

void InterfaceFixture::type(const QString& text)
{
    for (const QChar character : text)
        QTest::keyClick(m_window, character.toLatin1());
}

void InterfaceFixture::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window, key, modifiers);
}

QPoint InterfaceFixture::centerOf(QAccessibleInterface* item) const
{
    const auto* visual = qobject_cast<QQuickItem*>(item->object());
    return visual->mapToScene(visual->boundingRect().center()).toPoint();
}

void InterfaceFixture::openArea(const QString& button)
{
    press(QAccessible::Button, QStringLiteral("Menu"));
    press(QAccessible::Button, button);
    // The menu is gone once the new page has come to rest.
    ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::Button, QStringLiteral("Menu")); }))
        << button.toStdString() << " did not open";
}

void InterfaceFixture::openPage(QAccessible::Role role, const QString& name)
{
    press(role, name);
    waitForRest();
}

void InterfaceFixture::waitForRest()
{
    // While one page slides over another there are two ways back.
    EXPECT_TRUE(waitUntil([&] { return names(QAccessible::Button).count(QStringLiteral("Back")) == 1; }));
}

} // namespace giggle
