// SPDX-License-Identifier: MIT
#include "shell/OverviewViewController.h"

#include "platform/Platform.h"
#include "platform/Resources.h"
#include "store/Console.h"
#include "store/FatalError.h"

namespace giggle {

void OverviewViewController::viewDidLoad()
{
    const std::optional<QString> guide =
        environment().platform.resources.pathForResource(QStringLiteral("overview"), QStringLiteral("pdf"));
    if (!guide)
        fatalError(QStringLiteral("The guide, overview.pdf, is missing."), __FILE__, __LINE__);
    if (const QString failure = m_document.load(*guide); !failure.isEmpty())
        printFailure(failure);
}

} // namespace giggle
