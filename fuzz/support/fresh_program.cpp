#include "support/fresh_program.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "plot/legend.h"
#include "plot/plot_window.h"
#include "plot/progress.h"
#include "shell/main_window.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/files.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/check.h"

namespace halvern::fuzz {

namespace {

/// Zeroes memory of the process's own static data. Whole pages are given back to the system, which gives them out again as
/// zeros when they are touched: of a store of 35 MB an input touches a few.
void ZeroPages(char* begin, char* end) {
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto up = (page - reinterpret_cast<std::uintptr_t>(begin) % page) % page;
    const auto down = reinterpret_cast<std::uintptr_t>(end) % page;
    char* const first = begin + up;
    char* const last = end - down;
    std::memset(begin, 0, up);
    std::memset(last, 0, down);
    Check(::madvise(first, static_cast<std::size_t>(last - first), MADV_DONTNEED) == 0, "pages can be given back");
}

template <class Object>
void MakeAnew(Object& object) {
    std::destroy_at(&object);
    std::construct_at(&object);
}

struct ItemState {
    MenuItem* item;
    std::string caption;
    bool enabled, shown, ticked;
};

/// The main menu as it stands before the program starts: without printers, nothing tied to it.
struct MenuState {
    MenuBar bar = MainMenuBar();
    std::vector<ItemState> items;

    MenuState() {
        for (const auto& [level, item] : bar.Entries())
            items.push_back({item, item->Caption(), item->IsEnabled(), item->IsShown(), item->IsTicked()});
    }
    void BringBack() const {
        MainMenuBar() = bar;
        MakeAnew(Menus().Prn2Array);
        for (const auto& state : items) {
            state.item->SetCaption(state.caption);
            state.enabled ? state.item->Enable() : state.item->Disable();
            state.shown ? state.item->Show() : state.item->Hide();
            state.ticked ? state.item->Tick() : state.item->Untick();
        }
    }
};

}  // namespace

void CloseFiles() {
    // Of the files open at a time all but a few are closed again: the numbers in use have no wide gaps.
    constexpr int kWidestGap = 4;
    int gap = 0;
    for (std::int16_t number = 1; number <= kMostOpenFiles && gap < kWidestGap; ++number) {
        try {
            Close(number);
            gap = 0;
        } catch (const RuntimeFailure&) {
            ++gap;
        }
    }
}

void FreshStore() {
    AnalysisStore& store = Store();
    auto* const begin = reinterpret_cast<char*>(&store);
    std::destroy_at(&store);
    ZeroPages(begin, begin + sizeof store);
    ::new (static_cast<void*>(begin)) AnalysisStore;
}

void FreshProgram() {
    static const MenuState menus;
    CloseFiles();
    FreshStore();
    MakeAnew(OutFileBox());
    menus.BringBack();
    MakeAnew(CmpltFrmForm());
    MakeAnew(PlotLegendForm());
    MakeAnew(PlotitForm());
    MakeAnew(MainForm());
}

}  // namespace halvern::fuzz
