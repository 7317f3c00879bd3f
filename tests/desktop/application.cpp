#include "desktop/application.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <clocale>
#include <memory>

namespace halvern::test {
namespace {

// The application object is made when tests run, not when they are listed: a build has no display.
class Application : public ::testing::Environment {
  public:
    void SetUp() override {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("DISPLAY")) << "these tests need an X display";
        application_ = std::make_unique<QApplication>(argc_, argv_);
        QApplication::setQuitOnLastWindowClosed(false);
        // As the program leaves the locale that the toolkit has taken over: the tests print numbers too.
        std::setlocale(LC_NUMERIC, "C");
        QLocale::setDefault(QLocale::c());
    }
    void TearDown() override { application_.reset(); }

  private:
    char name_[8] = "halvern";
    char* argv_[2] = {name_, nullptr};
    int argc_ = 1;
    std::unique_ptr<QApplication> application_;
};

const ::testing::Environment* const kApplication = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace
}  // namespace halvern::test
