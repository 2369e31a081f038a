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

    QString m_path = folder.filePath(u"overview.pdf"_qs);
};

TEST_F(OverviewTest, PagesAndParagraphsOfTheGuide)
{
    QPdfWriter writer(m_path);
    writer.setResolution(72);
    writer.setPageSize(QPageSize(QSizeF(300, 400), QPageSize::Point));
    writer.setPageMargins({});
    QPainter painter(&writer);
    QFont font(u"Liberation Sans"_qs);
    font.setPixelSize(12);
    painter.setFont(font);
    painter.drawText(30, 50, u"One."_qs);
    painter.drawText(30, 120, u"Two, which goes"_qs);
    painter.drawText(30, 135, u"on here."_qs);
    writer.newPage();
    painter.end();

    OverviewViewController screen(environment);
    screen.viewDidLoad();
    PdfContent& document = *screen.document();
    EXPECT_EQ(document.pageCount(), 2);
    EXPECT_EQ(document.widestPage(), 300);

    QStringList texts;
    for (const PdfParagraph& paragraph : document.paragraphs(0)) {
        texts << paragraph.text;
        EXPECT_NEAR(paragraph.place.left(), 0.1, 0.02);
    }
    EXPECT_EQ(texts, (QStringList{u"One."_qs, u"Two, which goes on here."_qs}));
}

TEST_F(OverviewTest, AMissingGuideStopsTheProgramADamagedOneIsEmpty)
{
    writeBytes(m_path, "no document");
    OverviewViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.document()->pageCount(), 0);
    system.resources.paths.clear();
    EXPECT_DEATH(OverviewViewController(environment).viewDidLoad(), "guide, overview.pdf, is missing");
}

} // namespace

} // namespace giggle
