// SPDX-License-Identifier: MIT
#include "shell/OverviewViewController.h"
#include "tests/support/ScreenFixture.h"

namespace giggle {

namespace {

using OverviewTest = ScreenFixture;

TEST_F(OverviewTest, AMissingGuideStopsTheProgramADamagedOneIsEmpty)
{
    EXPECT_DEATH(OverviewViewController(environment).viewDidLoad(), "guide, overview.pdf, is missing");
    const QString path = system.resources.paths[u"overview.pdf"_qs] = folder.filePath(u"overview.pdf"_qs);
    writeBytes(path, "no document");
    OverviewViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.document()->pageCount(), 0);
}

} // namespace

} // namespace giggle
