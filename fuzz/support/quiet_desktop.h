#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "tests/support/deserted_desktop.h"

namespace halvern::fuzz {

/// A desktop whose message boxes are answered by the letters of a text, over and over: 'n' is no; the rest is up to the
/// target.
class QuietDesktop final : public test::DesertedDesktop {
  public:
    explicit QuietDesktop(std::string_view answers) : answers_(answers) {}

    /// What a file dialog is answered; nothing cancels it.
    std::optional<std::string> choice;
    /// What the user does in a dialog; afterwards it is closed.
    std::function<void(Form&)> dialog;

    Answer AskUser(const std::string& /*text*/, int style, const std::string& /*title*/) override {
        if ((style & kYesNo) == 0)
            return Answer::kOk;
        const bool no = !answers_.empty() && answers_[asked_++ % answers_.size()] == 'n';
        return no ? Answer::kNo : Answer::kYes;
    }
    std::optional<std::string> AskForExistingFile(const FileDialog& /*dialog*/) override { return choice; }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return choice; }
    void RunModal(Form& form) override {
        if (dialog)
            dialog(form);
        form.Hide();
    }

  private:
    std::string answers_;
    std::size_t asked_ = 0;
};

}  // namespace halvern::fuzz
