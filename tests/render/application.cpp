#include <gtest/gtest.h>

#include <QGuiApplication>

#include <clocale>
#include <memory>

namespace halvern::test {
namespace {

// Fonts need an application, and pictures no display. It is made when tests run, not when they are listed.
class Application : public ::testing::Environment {
  public:
    void SetUp() override {
        application_ = std::make_unique<QGuiApplication>(argc_, argv_);
        // The toolkit has taken over the user's locale, and the tests print numbers.
        std::setlocale(LC_NUMERIC, "C");
    }
    void TearDown() override { application_.reset(); }

  private:
    char name_[8] = "halvern", option_[10] = "-platform", platform_[10] = "offscreen";
    char* argv_[4] = {name_, option_, platform_, nullptr};
    int argc_ = 3;
    std::unique_ptr<QGuiApplication> application_;
};

const ::testing::Environment* const kApplication = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace
}  // namespace halvern::test
