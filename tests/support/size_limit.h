// A full disk, as far as one file goes: no file grows beyond the limit while it stands.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace tallmar {

class SizeLimit {
  public:
    explicit SizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

}  // namespace tallmar
