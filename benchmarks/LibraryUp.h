#pragma once

#include <OstrelLibWx/OstrelLibWx.h>

/// The library is up as long as this lives. A benchmark that needs it, be it for a bitmap alone, makes one first of
/// all, before its measured loop.
class LibraryUp {
public:
    LibraryUp() { Ostrel::LibWx::startup(Ostrel::LibWx::ApplicationType::STANDALONE); }
    ~LibraryUp() { Ostrel::LibWx::shutdown(); }
    LibraryUp(const LibraryUp&) = delete;
    LibraryUp& operator=(const LibraryUp&) = delete;
};
