#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace halvern {

/// Windows and controls are measured in twips; 15 twips make one pixel at the usual 96 pixels an inch.
inline constexpr std::int32_t kTwipsPerPixel = 15;

/// Where a control stands in its window, or a window on the screen, in twips.
struct Place {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Place&) const = default;
};

enum class ControlKind {
    kForm,
    kMenuItem,
    kButton,
    kLabel,
    kTextBox,
    kFrame,
    kLine,
    kPanel,
    kListBox,
    kPicture,
    kProgressBar,
    kUpDown,
    kCheckBox
};

/// The font of a control's text: Times New Roman, or what the platform has in its place.
struct TextFont {
    float points;
    bool bold = false;
    bool operator==(const TextFont&) const = default;
};

class Control;

/// Whoever shows a control: it is told after each change of the model, and reads from it what it needs.
class ControlObserver {
  public:
    virtual void ControlChanged(Control& control) = 0;

  protected:
    ~ControlObserver() = default;
};

/// What every control has: a name, a caption, two states and a place. Handlers set it; an adapter mirrors it.
///
/// A control knows nothing of the widget that shows it, and there may be none.
class Control {
  public:
    Control(ControlKind kind, std::string caption) : kind_(kind), caption_(std::move(caption)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    ControlKind Kind() const { return kind_; }

    /// The design's name, with its index for an element of a control array: "Prn2Array(1)".
    const std::string& Name() const { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }

    /// The text on the control. An `&` stands before the access key of menu items and buttons.
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    /// What assistive programs call the control; empty where its caption says it.
    const std::string& SpokenName() const { return spokenName_; }
    void SetSpokenName(std::string name) { spokenName_ = std::move(name); }

    /// Unset where the text has the platform's own font.
    const std::optional<TextFont>& Font() const { return font_; }
    void SetFont(TextFont font);

    bool IsEnabled() const { return enabled_; }
    void Enable() { SetEnabled(true); }
    void Disable() { SetEnabled(false); }

    /// The control's own state: a shown button in a hidden window is shown.
    bool IsShown() const { return shown_; }
    virtual void Show() { SetShown(true); }
    virtual void Hide() { SetShown(false); }

    const Place& Where() const { return place_; }
    void SetPlace(const Place& place);

    /// At most one observer; null for none.
    void Observe(ControlObserver* observer) { observer_ = observer; }

  protected:
    void SetEnabled(bool enabled);
    void SetShown(bool shown);
    void Changed();

  private:
    ControlKind kind_;
    bool enabled_ = true;
    bool shown_ = true;
    std::string name_;
    std::string caption_;
    std::string spokenName_;
    std::optional<TextFont> font_;
    Place place_;
    ControlObserver* observer_ = nullptr;
};

class Label : public Control {
  public:
    explicit Label(std::string caption = {}) : Control(ControlKind::kLabel, std::move(caption)) {}
};

/// A frame with a caption around other controls.
class Frame : public Control {
  public:
    explicit Frame(std::string caption = {}) : Control(ControlKind::kFrame, std::move(caption)) {}
};

/// A horizontal line that divides a dialog.
class RuledLine : public Control {
  public:
    RuledLine() : Control(ControlKind::kLine, {}) {}
};

/// A strip along the lower edge of its window, as wide as that. Other controls stand on it, at places counted from its
/// top left.
class Panel : public Control {
  public:
    Panel() : Control(ControlKind::kPanel, {}) {}

    void Hold(const Control& control) { held_.push_back(&control); }
    bool Holds(const Control& control) const { return std::find(held_.begin(), held_.end(), &control) != held_.end(); }

  private:
    std::vector<const Control*> held_;
};

/// A picture that the program brings along.
class Picture : public Control {
  public:
    /// Given     resource   its name among the program's pictures: "boundary"
    explicit Picture(std::string resource) : Control(ControlKind::kPicture, {}), resource_(std::move(resource)) {}

    const std::string& Resource() const { return resource_; }

  private:
    std::string resource_;
};

/// A bar that tells how far something is, from 0 to 100.
class ProgressBar : public Control {
  public:
    ProgressBar() : Control(ControlKind::kProgressBar, {}) {}

    int Value() const { return value_; }
    /// Given     value   0 .. 100
    void SetValue(int value);

  private:
    int value_ = 0;
};

class Button : public Control {
  public:
    explicit Button(std::string caption = {}) : Control(ControlKind::kButton, std::move(caption)) {}

    /// What a press does; empty for a button that nothing hangs on.
    std::function<void()> Click;
};

}  // namespace halvern
