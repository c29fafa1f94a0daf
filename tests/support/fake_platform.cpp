#include "support/fake_platform.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tallmar {

namespace {

constexpr int kButtonMask = 7;

bool Offers(int buttons, Answer answer) {
    switch (buttons & kButtonMask) {
        case kOkOnly:
            return answer == Answer::Ok;
        case kOkCancel:
            return answer == Answer::Ok || answer == Answer::Cancel;
        case kYesNoCancel:
            return answer == Answer::Yes || answer == Answer::No || answer == Answer::Cancel;
        case kYesNo:
            return answer == Answer::Yes || answer == Answer::No;
        default:
            return false;
    }
}

std::optional<std::string> Next_Reply(std::deque<std::optional<std::string>>& replies, const FileDialog& dialog) {
    if (replies.empty()) {
        ADD_FAILURE() << "file dialog without a reply: \"" << dialog.title << "\"";
        return std::nullopt;
    }
    auto reply = std::move(replies.front());
    replies.pop_front();
    return reply;
}

}  // namespace

FakePlatform::FakePlatform() : before_(Install_Platform(this)) {}

FakePlatform::~FakePlatform() {
    Install_Platform(before_);
    for (const auto& [box, whole] : expected_) {
        ADD_FAILURE() << "expected box never came: \"" << box.title << "\": \"" << box.text << "\"";
    }
    if (!openReplies_.empty()) ADD_FAILURE() << openReplies_.size() << " replies to an open dialog were not used";
    if (!saveReplies_.empty()) ADD_FAILURE() << saveReplies_.size() << " replies to a save dialog were not used";
}

void FakePlatform::Expect_Box(std::string_view title, std::string_view text, Answer answer, int buttons) {
    expected_.push_back({{std::string(title), std::string(text), buttons, answer}, true});
}

void FakePlatform::Expect_Box_Starting(std::string_view title, std::string_view textStart, Answer answer, int buttons) {
    expected_.push_back({{std::string(title), std::string(textStart), buttons, answer}, false});
}

void FakePlatform::Advance(int seconds) {
    constexpr double kSecondsADay = 86400;
    now_ = Date{std::round(now_.serial * kSecondsADay + seconds) / kSecondsADay};
}

Answer FakePlatform::Message_Box(std::string_view prompt, int buttons, std::string_view title) {
    boxes.push_back({std::string(title), std::string(prompt), buttons, Answer::None});
    if (expected_.empty()) {
        ADD_FAILURE() << "unexpected box: \"" << title << "\": \"" << prompt << "\"";
        return Answer::None;
    }
    const auto [box, whole] = std::move(expected_.front());
    expected_.pop_front();
    if (title != box.title || (whole ? prompt != box.text : !prompt.starts_with(box.text))) {
        ADD_FAILURE() << "another box than expected: \"" << title << "\": \"" << prompt << "\"\n  expected "
                      << (whole ? "" : "(start) ") << "\"" << box.title << "\": \"" << box.text << "\"";
    }
    if (box.buttons != kAnyButtons && buttons != box.buttons) {
        ADD_FAILURE() << "box \"" << title << "\" with buttons " << buttons << ", expected " << box.buttons;
    }
    if (!Offers(buttons, box.answer)) {
        ADD_FAILURE() << "box \"" << title << "\" does not offer the answer " << static_cast<int>(box.answer);
    }
    return boxes.back().answer = box.answer;
}

std::optional<std::string> FakePlatform::Open_File(const FileDialog& dialog) {
    openDialogs.push_back(dialog);
    return Next_Reply(openReplies_, dialog);
}

std::optional<std::string> FakePlatform::Save_File(const FileDialog& dialog) {
    saveDialogs.push_back(dialog);
    return Next_Reply(saveReplies_, dialog);
}

void FakePlatform::Show_Batch_Messages(std::string_view title, const std::vector<BatchMessage>& rows) {
    batches.push_back({std::string(title), rows});
}

void FakePlatform::Do_Events() {
    ++events;
    if (onEvents) onEvents();
}

std::string FakePlatform::Get_Setting(std::string_view application, std::string_view section, std::string_view key,
                                      std::string_view otherwise) {
    const auto found = settings.find({std::string(application), std::string(section), std::string(key)});
    return found == settings.end() ? std::string(otherwise) : found->second;
}

void FakePlatform::Save_Setting(std::string_view application, std::string_view section, std::string_view key,
                                std::string_view value) {
    settings[{std::string(application), std::string(section), std::string(key)}] = value;
}

bool FakePlatform::Close_All_Forms(std::string_view but) {
    formLeftOpen = but;
    ++formClosings;
    return closeFormsCancelled;
}

}  // namespace tallmar
