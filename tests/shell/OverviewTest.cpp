// SPDX-License-Identifier: MIT
#include "shell/OverviewViewController.h"
#include "tests/support/ScreenFixture.h"

#include <QPainter>
#include <QPdfWriter>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class OverviewTest : public ScreenFixture {
protected:
    void SetUp() override { system.resources.paths[u"overview.pdf"_qs] = m_path; }

    /// Two pages; on the first a title and two paragraphs, of which the second has two lines.
    void writeGuide()
    {
        QPdfWriter writer(m_path);
        writer.setResolution(72);
        writer.setPageSize(QPageSize(QSizeF(300, 400), QPageSize::Point));
        writer.setPageMargins({});
        QPainter painter(&writer);
        QFont font(u"Liberation Sans"_qs);
        const auto write = [&](int y, int pixelSize, const QString& text) {
            font.setPixelSize(pixelSize);
            painter.setFont(font);
            painter.drawText(30, y, text);
        };
        write(50, 24, u"Jokes"_qs);
        write(90, 12, u"One."_qs);
        write(120, 12, u"Two, which goes"_qs);
        write(135, 12, u"on here."_qs);
        writer.newPage();
        write(50, 12, u"The end"_qs);
    }

    QString m_path = folder.filePath(u"overview.pdf"_qs);
};

TEST_F(OverviewTest, PagesAndParagraphsOfTheGuide)
{
    writeGuide();
    OverviewViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.title(), u"Parchment Trove Overview"_qs);
    PdfContent& document = *screen.document();
    EXPECT_EQ(document.pageCount(), 2);
    EXPECT_EQ(document.widestPage(), 300);

    QStringList texts;
    for (const PdfParagraph& paragraph : document.paragraphs(0)) {
        texts << paragraph.text;
        EXPECT_TRUE(QRectF(0, 0, 1, 1).contains(paragraph.place)) << qPrintable(paragraph.text);
        EXPECT_NEAR(paragraph.place.left(), 0.1, 0.02);
    }
    EXPECT_EQ(texts, (QStringList{u"Jokes"_qs, u"One."_qs, u"Two, which goes on here."_qs}));
}

TEST_F(OverviewTest, AMissingGuideStopsTheProgramADamagedOneIsEmpty)
{
    writeBytes(m_path, "no document");
    OverviewViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.document()->pageCount(), 0);
    EXPECT_EQ(screen.document()->widestPage(), 0);
    system.resources.paths.clear();
    EXPECT_DEATH(OverviewViewController(environment).viewDidLoad(), "guide, overview.pdf, is missing");
}

} // namespace

} // namespace giggle
