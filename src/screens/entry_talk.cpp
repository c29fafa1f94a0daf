#include "screens/entry_talk.h"

#include "common/text.h"

namespace tallmar {

Refusal Fill_Box(const BoxText& box, const BoxArguments& arguments) {
    const auto filled = [&](std::string_view text) {
        const std::string withPlaces = Replace(text, "<places>", std::to_string(arguments.places));
        return Replace(Replace(withPlaces, "<length>", std::to_string(arguments.length)), "<text>", arguments.text);
    };
    return {.title = std::string(box.title), .text = filled(box.text), .brief = filled(box.brief)};
}

void Show_Refusal(const Refusal& refusal) {
    if (refusal.shown) return;
    The_Platform().Beep();
    The_Platform().Message_Box(refusal.text, kStop, refusal.title);
}

void EntryTalk::Warn(const Refusal& box) const {
    if (warnings_ != nullptr) {
        warnings_->push_back(box);
    } else {
        The_Platform().Message_Box(box.text, kExclamation, box.title);
    }
}

Answer EntryTalk::Ask(const Refusal& question, int buttons) const {
    if (Is_Quiet()) return Answer::None;
    return The_Platform().Message_Box(question.text, buttons, question.title);
}

bool EntryTalk::Close_Other_Forms(std::string_view but) const {
    return !Is_Quiet() && !The_Platform().Close_All_Forms(but);
}

}  // namespace tallmar
