// SPDX-License-Identifier: MIT
#include "store/WriteSignals.h"

#include <csignal>

namespace giggle {

void ignoreWriteSignals()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

} // namespace giggle
