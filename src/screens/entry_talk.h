// What the checks of an entry say to the person: refusals, warnings, questions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/platform.h"

namespace tallmar {

// A box as a table holds it: <text>, <places> and <length> are replaced by what was typed and what the cell takes.
// `brief` is the reason in a list of many cells.
struct BoxText {
    std::string_view title, text;
    std::string_view brief = {};
};

// The cell or the row keeps what it held. A stop box says so, or a question that was asked already.
struct Refusal {
    std::string title, text;
    bool shown = false;
    // The same in a few words behind what was typed, for a list of many cells: "not a number". May be empty.
    std::string brief = {};
};

struct BoxArguments {
    std::string_view text = {};
    int places = 0;
    int length = 0;
};
Refusal Fill_Box(const BoxText& box, const BoxArguments& arguments = {});

// Beeps and shows the stop box of a refusal, unless a question was its box.
void Show_Refusal(const Refusal& refusal);

// What a check is handed to speak to the person. It shows boxes, or it is quiet: warnings are listed and nothing is
// asked.
class EntryTalk {
  public:
    EntryTalk() = default;
    // Quiet. `warnings` receives what would have been warned of, and outlives the talk.
    explicit EntryTalk(std::vector<Refusal>& warnings) : warnings_(&warnings) {}

    bool Is_Quiet() const { return warnings_ != nullptr; }
    // A box that only warns.
    void Warn(const Refusal& box) const;
    // A question, the icon among the buttons. Answer::None where nothing is asked: the entry is refused then.
    Answer Ask(const Refusal& question, int buttons) const;
    // Closes the forms other than `but`, which waits for the answer. False where the person keeps them open, and where
    // nothing is asked.
    bool Close_Other_Forms(std::string_view but) const;

  private:
    std::vector<Refusal>* warnings_ = nullptr;
};

}  // namespace tallmar
