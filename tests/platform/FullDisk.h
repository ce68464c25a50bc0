#pragma once

#include <sys/resource.h>

#include <csignal>

#include "tests/kit/InChild.h"

/// Acts in a process of its own that can write files of so many bytes and no more, as on a full disk.
inline void withRoomFor(std::size_t bytes, const std::function<void()>& act) {
  inChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit most{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &most);
    act();
  });
}
