// What a command prints on standard output. Results are held back until the command has done its work, so that one that
// fails half-way prints none; beyond kMostHeld bytes they go out as they come.
#pragma once

#include <cstddef>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace tallmar {

struct ResultsNotWritten : std::runtime_error {
    ResultsNotWritten() : std::runtime_error("The results could not be written to standard output.") {}
};

class HeldText final : public std::streambuf {
  public:
    explicit HeldText(std::ostream& out) : out_(out) {}
    void Write_Out();

  protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;

  private:
    std::ostream& out_;
    std::string held_;
};

// Whatever is printed throws ResultsNotWritten where it does not go out.
class Results final : public std::ostream {
  public:
    static constexpr std::size_t kMostHeld = std::size_t{4} << 20;

    explicit Results(std::ostream& target);
    // Everything printed so far is out when it returns. Called before a job commits: a change whose results nobody
    // got is not made.
    void Write_Out() { held_.Write_Out(); }

  private:
    HeldText held_;
};

}  // namespace tallmar
