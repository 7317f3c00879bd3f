// halvern_stages SCRIPT: runs the program from a session script in the current folder and prints, after each stage of it,
// every number of the analysis store that the stage has changed: the numbers themselves, and checksums of the arrays.
//
// A stage ends where a line "# stage: NAME" of the script begins the next one. What the script has the program print
// comes between, and at the end of a stage a checksum of what the plot window would draw, if it has a plot.

#include <cstdint>
#include <exception>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bits/store_bits.h"
#include "plot/plot_window.h"
#include "replay/events.h"
#include "replay/replay_desktop.h"
#include "replay/script.h"
#include "shell/start.h"
#include "store/analysis_store.h"
#include "ui/canvas.h"

namespace {

using namespace halvern;

/// Takes a checksum of what is drawn on it. Texts have no extent.
class ChecksumCanvas final : public Canvas {
  public:
    /// Given     place   of the window, whose size it has
    explicit ChecksumCanvas(const Place& place) : place_(place) {}

    std::string Text() const { return sum_.Text(); }

    void Scale(float x1, float y1, float x2, float y2) override {
        Take({x1, y1, x2, y2});
        scaleHeight_ = y2 - y1;
    }
    void Cls() override {}
    float PixelWidth() const override { return static_cast<float>(place_.width / kTwipsPerPixel); }
    float PixelHeight() const override { return static_cast<float>(place_.height / kTwipsPerPixel); }
    float ScaleHeight() const override { return scaleHeight_; }
    void SetDrawWidth(int pixels) override { Take({}, pixels); }
    void SetDrawMode(DrawMode mode) override { Take({}, static_cast<Colour>(mode)); }
    void MoveTo(float x, float y) override { Take({x, y}); }
    void LineTo(float x, float y, Colour colour) override { Take({x, y}, colour); }
    void Box(float x1, float y1, float x2, float y2, Colour colour) override { Take({x1, y1, x2, y2}, colour); }
    void FilledBox(float x1, float y1, float x2, float y2, Colour colour) override { Take({x1, y1, x2, y2}, colour); }
    void Circle(float x, float y, float radius, Colour colour) override { Take({x, y, radius}, colour); }
    void Polygon(std::span<const PixelPoint> corners) override {
        for (const PixelPoint& corner : corners)
            Take({static_cast<float>(corner.x), static_cast<float>(corner.y)});
    }
    void SetFont(int points, bool /*bold*/) override { Take({}, points); }
    void SetRotatedFont(int cellPixels) override { Take({}, cellPixels); }
    void Print(std::string_view text) override {
        for (const char character : text)
            sum_.Add(static_cast<std::uint8_t>(character));
    }
    int TextWidthPixels(std::string_view /*text*/) const override { return 0; }
    float TextWidth(std::string_view /*text*/) const override { return 0.0F; }
    float TextHeight(std::string_view /*text*/) const override { return 0.0F; }

  private:
    void Take(std::initializer_list<float> positions, std::int32_t number = 0) {
        for (const float position : positions)
            sum_.Add(position);
        sum_.Add(static_cast<std::uint32_t>(number));
    }

    test::Checksum sum_;
    Place place_;
    float scaleHeight_ = 0.0F;
};

struct Stage {
    std::string name;
    std::string script;
};

std::vector<Stage> StagesOf(std::istream& in) {
    constexpr std::string_view kMark = "# stage: ";
    std::vector<Stage> stages{{"start", ""}};
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with(kMark))
            stages.push_back({line.substr(kMark.size()), ""});
        else
            stages.back().script += line + '\n';
    }
    return stages;
}

/// The events of one stage. What opens in a stage is answered in it.
class StagePlayer : private replay::AnswerSource {
  public:
    /// Starts the program. What the start sets is the first stage's.
    StagePlayer() : before_(test::StoreBits()), script_(""), desktop_(*this, std::cout) { Main(); }

    void Play(const Stage& stage) {
        script_ = replay::Script(stage.script);
        while (!script_.AtEnd())
            CarryOutNextLine();
        std::vector<test::MemberBits> after = test::StoreBits();
        std::cout << "stage " << stage.name << '\n';
        for (const auto& change : test::Changed(before_, after))
            std::cout << "  " << change << '\n';
        before_ = std::move(after);
        if (Store().PlotReady)
            std::cout << "  drawn " << Drawn() << '\n';
    }

  private:
    bool AnswerComesNext() const override { return script_.NextIs("answer"); }
    void CarryOutNextLine() override {
        const replay::ScriptLine& line = script_.Next();
        if (!line.error.empty())
            throw replay::ScriptError(line.error);
        replay::CarryOut(desktop_, line.words);
    }
    std::string Drawn() {
        ChecksumCanvas canvas(PlotitForm().Where());
        desktop_.DrawOn(PlotitForm(), canvas, [] { PlotitForm().Form_Paint(); });
        return canvas.Text();
    }

    std::vector<test::MemberBits> before_;
    replay::Script script_;
    replay::ReplayDesktop desktop_;
};

int Complain(const std::string& where, const std::string& reason) {
    std::cout.flush();
    std::cerr << "halvern_stages: " << where << ": " << reason << '\n';
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return Complain("usage", "halvern_stages SCRIPT");
    std::ifstream in(argv[1]);
    if (!in)
        return Complain(argv[1], "can't be read");
    const std::vector<Stage> stages = StagesOf(in);
    StagePlayer player;
    for (const Stage& stage : stages) {
        try {
            player.Play(stage);
        } catch (const replay::ScriptEnd&) {
            return Complain(stage.name, "ends while a question waits");
        } catch (const std::exception& error) {
            return Complain(stage.name, error.what());
        }
    }
    std::cout.flush();
    return std::cout ? 0 : Complain("output", "can't be written");
}
