// SPDX-License-Identifier: MIT
#include "benchmarks/ScreenSession.h"

#include "benchmarks/Figure.h"
#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "jokes/EditJokeViewController.h"
#include "jokes/NewMainListTableViewController.h"
#include "lists/CategoryGroupTableViewController.h"
#include "store/PreferenceKeys.h"

#include <QEventLoop>
#include <QQuickItem>
#include <QTimer>

#include <stdexcept>

namespace giggle {

namespace {

constexpr QSize PhoneSize{360, 640};
constexpr int StepPixels = 90; // between two frames of a quick flick

} // namespace

ScreenSession::ScreenSession(const QString& folder)
    : m_userDefaults(m_settings.filePath(QStringLiteral("preferences.json"))), m_appDelegate(folder),
      m_windowActivation(m_settings.filePath(QStringLiteral("lock"))),
      m_interface(m_appDelegate, m_userDefaults,
                  {m_interfaceStyle, m_fonts, m_resources, m_windowActivation, m_storeReview, m_addressOpener,
                   m_mailComposer, m_messageCapability, m_fileOpener})
{
    m_userDefaults.setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true);
}

double ScreenSession::openMenu()
{
    return secondsFor([this] {
        m_window = &m_interface.load();
        m_window->resize(PhoneSize);
        awaitFrame();
        return 0;
    });
}

double ScreenSession::openJokeList()
{
    const double seconds = secondsFor([this] {
        m_interface.navigation().performSegue(SegueId::JokeList);
        awaitFrame();
        return 0;
    });
    rest();
    return seconds;
}

double ScreenSession::openEditor()
{
    auto& list = screenAround<NewMainListTableViewController>(QStringLiteral("JokeTableView"));
    const double seconds = secondsFor([&] {
        list.selectRow(list.numberOfRows() / 2);
        awaitFrame();
        return 0;
    });
    rest();
    return seconds;
}

double ScreenSession::exportFile()
{
    m_interface.navigation().performSegue(SegueId::ExportJokes);
    rest();
    auto& screen = screenAround<ExportViewController>(QStringLiteral("ExportButton"));
    const double seconds = secondsFor([&] {
        screen.CreateUpdateFile();
        return 0;
    });
    rest();
    if (!screen.isSaveButtonEnabled())
        throw std::runtime_error("the export is not complete");
    return seconds;
}

double ScreenSession::importFile(const QString& path)
{
    const double loading = secondsFor([&] {
        m_interface.open(QUrl::fromLocalFile(path));
        return 0;
    });
    rest();
    auto& screen = screenAround<ImportViewController>(QStringLiteral("ImportButton"));
    return loading + secondsFor([&] {
               screen.ImportTextFile();
               return 0;
           });
}

double ScreenSession::saveInEditor()
{
    auto& editor = screenAround<EditJokeViewController>(QStringLiteral("SaveButton"));
    const bool isFavorite = editor.checkBox() == QStringLiteral("Checked");
    editor.CheckBoxChecked(isFavorite ? QStringLiteral("Unchecked") : QStringLiteral("Checked"));
    const double seconds = secondsFor([&] {
        editor.SaveButtonClicked();
        return 0;
    });
    if (editor.hasUnsavedChanges())
        throw std::runtime_error("the editor has not saved");
    return seconds;
}

template <class ScreenClass>
ScreenClass& ScreenSession::screenAround(const QString& itemName) const
{
    for (auto* item = m_window->findChild<QQuickItem*>(itemName); item; item = item->parentItem())
        if (auto* screen = item->property("screen").value<ScreenClass*>())
            return *screen;
    throw std::runtime_error(itemName.toStdString() + " is not on show");
}

void ScreenSession::rest()
{
    QEventLoop loop;
    QTimer::singleShot(1000, &loop, &QEventLoop::quit);
    loop.exec();
}

double ScreenSession::openLargestBreakdown()
{
    m_interface.navigation().performSegue(SegueId::TabBarController);
    rest();
    auto& groups = screenAround<CategoryGroupTableViewController>(QStringLiteral("SortButton"));
    const auto count = [&](int row) {
        return groups.cellForRow(row).value<GroupTableViewCell>().CountLabel.toInt();
    };
    int largest = 0;
    for (int row = 1; row < groups.numberOfRows(); ++row)
        if (count(row) > count(largest))
            largest = row;
    return secondsFor([&] {
        groups.selectRow(largest);
        awaitFrame();
        return 0;
    });
}

std::vector<double> ScreenSession::scroll(int frames)
{
    auto* list = m_window->findChild<QQuickItem*>(QStringLiteral("JokeTableView"));
    if (!list)
        throw std::runtime_error("the joke list is not on show");
    std::chrono::steady_clock::time_point frameStart;
    const auto started = QObject::connect(m_window, &QQuickWindow::afterAnimating, m_window,
                                          [&] { frameStart = std::chrono::steady_clock::now(); });
    std::vector<double> seconds;
    for (int i = 0; i < frames; ++i) {
        const double moving = secondsFor(
            [&] { return list->setProperty("contentY", list->property("contentY").toReal() + StepPixels); });
        m_window->update();
        awaitFrame();
        const std::chrono::duration<double> drawing = std::chrono::steady_clock::now() - frameStart;
        seconds.push_back(moving + drawing.count());
    }
    QObject::disconnect(started);
    return seconds;
}

void ScreenSession::awaitFrame()
{
    QEventLoop loop;
    QObject::connect(m_window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace giggle
