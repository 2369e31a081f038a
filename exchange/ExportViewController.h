// SPDX-License-Identifier: MIT
#pragma once

#include "ui/LargeTextModel.h"
#include "ui/Screen.h"

#include <cstdint>
#include <vector>

namespace giggle {

class Category;
class ExchangeWriter;
class Jokes;
class Rating;

/// Writes the whole collection into one exchange file, shows its text, and hands the file on: to the share
/// sheet or to a mail. A file is built once in the life of the screen and can be handed on any number of
/// times.
class ExportViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(bool isExportButtonEnabled READ isExportButtonEnabled NOTIFY buttonsChanged)
    Q_PROPERTY(bool isSaveButtonEnabled READ isSaveButtonEnabled NOTIFY buttonsChanged)
    Q_PROPERTY(bool isEmailButtonEnabled READ isEmailButtonEnabled NOTIFY buttonsChanged)
    Q_PROPERTY(giggle::LargeTextModel* ExportTextView READ exportTextView CONSTANT)
    Q_PROPERTY(double ProgressView READ progressView NOTIFY progressViewChanged)
    Q_PROPERTY(QString HelpTextView READ helpTextView CONSTANT)
    Q_PROPERTY(
        bool isActivityIndicatorAnimating READ isActivityIndicatorAnimating NOTIFY activityIndicatorChanged)

public:
    explicit ExportViewController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Export Jokes"); }

    [[nodiscard]] bool isExportButtonEnabled() const { return m_isExportButtonEnabled; }

    [[nodiscard]] bool isSaveButtonEnabled() const { return m_areHandOnButtonsEnabled; }

    [[nodiscard]] bool isEmailButtonEnabled() const { return m_areHandOnButtonsEnabled; }

    [[nodiscard]] LargeTextModel* exportTextView() { return &m_exportTextView; }

    /// How far the bar is, 0 to 1. It follows the jokes only once the file is complete.
    [[nodiscard]] double progressView() const { return m_progressView; }

    [[nodiscard]] static QString helpTextView();

    [[nodiscard]] bool isActivityIndicatorAnimating() const { return m_isActivityIndicatorAnimating; }

    /// Has the collection read and in order, so that the export button need not wait for that.
    void viewDidAppear() override;

public slots:
    /// The export button: builds the file's text. A collection that cannot be read ends the program.
    void CreateUpdateFile();

    /// The save button: writes the text to a temporary file and opens the share sheet for it. Without a text
    /// the program ends; a failure to write is logged.
    void SaveToFiles();

    /// The e-mail button: writes what is shown to a temporary file, shows what has been written, and composes
    /// a mail with the file.
    void WriteTextFile();

signals:
    void buttonsChanged();
    void progressViewChanged();
    void activityIndicatorChanged();

private:
    /// @name The steps of building the file
    /// @{
    void writeJokes(ExchangeWriter& writer);
    void writeCategories(ExchangeWriter& writer);
    void writeRatings(ExchangeWriter& writer);
    void beginStep();
    /// @}

    void presentCompletion();
    /// Has the bar move on by so much of ten, once the event loop is reached.
    void queueProgress(std::int64_t completedUnits);
    void showProgress();
    void setActivityIndicatorAnimating(bool animating);
    [[nodiscard]] QString filePath() const;
    void showWritten(const QString& path);

    std::vector<Jokes*> m_theEntryList;
    std::vector<Category*> m_theCategoryList;
    std::vector<Rating*> m_theRatingList;
    std::int64_t m_completedUnitCount = 0;
    LargeTextModel::Text m_dataString;
    LargeTextModel m_exportTextView;
    bool m_isExportButtonEnabled = true;
    bool m_areHandOnButtonsEnabled = false;
    bool m_isActivityIndicatorAnimating = false;
    double m_progressView = 0;
};

} // namespace giggle
