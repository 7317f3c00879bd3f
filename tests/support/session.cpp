#include "support/session.h"

#include "shell/start.h"
#include "store/menus.h"

namespace halvern::test {

Session::Session() { Main(); }

void Session::Load(const std::string& listPath) {
    desktop.choices.push_back(listPath);
    Menus().GetListNow.Click();
    desktop.messages.clear();
}

void Session::LoadSpeeds(const std::vector<int>& speeds, ScanFile like) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < speeds.size(); ++i) {
        like.speed = speeds[i];
        like.omega2t = std::to_string(i + 1) + "E9";
        names.push_back("scan" + std::to_string(i + 1));
        folder.Write(names.back(), like.Text());
    }
    Load(folder.Write("speeds.LST", ListText(names)));
}

}  // namespace halvern::test
