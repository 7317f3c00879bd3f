#include "replay/render.h"

#include <dlfcn.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <memory>
#include <system_error>

#include "plot/plot_window.h"
#include "render/drawing.h"
#include "replay/script.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/file_calls.h"
#include "store/system_failure.h"

namespace halvern::replay {

namespace {

constexpr const char* kRenderer = "halvern-render.so";
constexpr const char* kKinds[] = {"png", "svg", "pdf"};

/// The ending of a path without its dot, in lower case; empty if it is none of the kinds.
std::string KindOf(const std::filesystem::path& path) {
    std::string ending = path.extension().string();
    ending.erase(0, 1);
    for (char& c : ending)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const bool known = std::find(std::begin(kKinds), std::end(kKinds), ending) != std::end(kKinds);
    return known ? ending : std::string();
}

/// What draws pictures: beside this program where it was built, in a folder of its own where it is installed.
std::filesystem::path RendererFile() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const std::filesystem::path beside = folder / kRenderer;
    return std::filesystem::exists(beside, error) ? beside : folder / HALVERN_MODULES_FROM_PROGRAMS / kRenderer;
}

/// Throws    ScriptError when it can't be loaded
void* LoadRenderer() {
    void* const renderer = dlopen(RendererFile().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (renderer == nullptr)
        throw ScriptError(std::string("the renderer can't be loaded: ") + dlerror());
    return renderer;
}

BeginDrawing& Renderer() {
    static void* const renderer = LoadRenderer();
    void* const found = dlsym(renderer, kBeginDrawing);
    if (found == nullptr)
        throw ScriptError("the renderer is of another version");
    return *reinterpret_cast<BeginDrawing*>(found);
}

/// Draws the plot window, in its size, as a file of a kind.
///
/// Result    why that can't be done; empty if `content` holds the file
std::string DrawPlot(ReplayDesktop& desktop, std::string_view kind, std::string& content) {
    PlotWindow& plot = PlotitForm();
    const DrawingOrder order{kind, PixelsOf(plot.Where().width), PixelsOf(plot.Where().height)};
    std::string reason;
    const std::unique_ptr<Drawing> drawing(Renderer()(order, reason));
    if (drawing == nullptr)
        return reason;
    drawing->Surface().Cls();
    if (Store().PlotReady)
        desktop.DrawOn(plot, drawing->Surface(), [&] { plot.Form_Paint(); });
    return drawing->Finish(content);
}

}  // namespace

int PixelsOf(std::int32_t twips) {
    return std::max(1, static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel)));
}

void RenderPlot(ReplayDesktop& desktop, const std::string& path) {
    const std::string kind = KindOf(path);
    if (kind.empty())
        throw ScriptError("not a .png, .svg or .pdf file: " + path);
    if (!Store().PlotReady)
        throw ScriptError("there is no plot");
    std::string content;
    std::string reason = DrawPlot(desktop, kind, content);
    if (reason.empty())
        if (const std::error_code error = ReplaceFile(path, content))
            reason = error.message();
    if (!reason.empty())
        throw ScriptError(path + " can't be written: " + reason);
}

void WritePlotBitmap(ReplayDesktop& desktop, const std::string& path) {
    std::string content;
    if (const std::string reason = DrawPlot(desktop, "bmp", content); !reason.empty())
        Fail(FailureCode::kDeviceError, path + ": " + reason);
    if (const std::error_code error = ReplaceFile(path, content))
        FailWithErrno(error.value(), path);
}

}  // namespace halvern::replay
