// SPDX-License-Identifier: MIT
#include "store/FileSizeSignal.h"

#include <csignal>

namespace giggle {

void ignoreFileSizeSignal()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

} // namespace giggle
