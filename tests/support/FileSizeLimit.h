// SPDX-License-Identifier: MIT
#pragma once

#include "store/WriteSignals.h"

#include <sys/resource.h>

namespace giggle {

/// While it lives no file can grow larger, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ignoreWriteSignals();
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before{};
};

} // namespace giggle
