#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "random/data_sets.h"
#include "random/model.h"
#include "random/random.h"
#include "replay/replay_desktop.h"

namespace halvern::random_user {

/// Somebody who does whatever can be done. What leads on in an analysis is done more often than the rest, so that its late
/// stages are reached; how much more differs from session to session.
class User {
  public:
    User(Random& random, DataSets& data, const Model& model, const replay::ReplayDesktop& desktop);

    /// The next thing that the user does, and whether it can be done.
    Event Next();

    /// A message box with OK alone waits: whether the user takes notice of it, by an event "answer" that comes next.
    bool AnswersBox() const;
    /// The text of the box that has come up.
    void ReadsBox(const std::string& text, bool yesNo);
    /// A file dialog has come up.
    void ReadsFileDialog(const std::string& title, bool forExistingFile);

  private:
    Event AnswerToBox();
    Event AnswerToFileDialog();
    Event InDialog(const Form& dialog);
    Event OnControl(const Form& dialog, const Control& control);
    Event OutsideDialog(const Form& dialog);
    Event AtLarge();
    Event Command(std::string_view window);
    Event OnPlot();
    Event Pick();
    Event MouseOnPlot();
    Event Zoom();
    Event OnReport();
    Event Resize();
    Event Print();
    Event Nonsense();
    Event Forbidden();
    std::string Position(double least, double most);
    std::string TypedText(const Form& dialog);

    Random& random_;
    DataSets& data_;
    const Model& model_;
    const replay::ReplayDesktop& desktop_;
    double wildness_;
    std::string boxText_;
    bool boxYesNo_ = false;
    std::string dialogTitle_;
    bool forExistingFile_ = false;
    int inDialog_ = 0;
};

}  // namespace halvern::random_user
