#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QProcess>

#include <chrono>
#include <filesystem>

#include "desktop/session.h"

namespace halvern {
namespace {

/// The program as a process of its own, with its lock in the folder of the test.
struct OtherProcess : test::Session {
    QProcess process;

    void Begin(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        process.setProcessEnvironment(environment);
        process.start(HALVERN_EXECUTABLE, QStringList{});
        ASSERT_TRUE(process.waitForStarted());
    }
    static void TurnTo(const std::string& title) { test::ActivateWindow(test::FindWindow(title)); }
    static void Press(const std::string& keys) { EXPECT_EQ(test::RunCommand("xdotool key " + keys).status, 0); }
    /// Closes the main window by its frame and answers Yes.
    void End() {
        Press("alt+F4");
        TurnTo("Halvern");
        Press("y");
        ASSERT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
    }
};

TEST_F(OtherProcess, StartsAfterAnInstanceThatWasKilled) {
    Begin();
    TurnTo("Halvern V0.99");
    process.kill();
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "run" / "halvern.lock"));
    Begin();
    TurnTo("Halvern V0.99");
    End();
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "run" / "halvern.lock"));
}

TEST_F(OtherProcess, StartsAndEndsWhileThePrintSystemIsSilent) {
    // A print server that takes connections and never says a word.
    const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(::bind(server, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(::listen(server, 8), 0);
    ASSERT_EQ(::getsockname(server, reinterpret_cast<sockaddr*>(&address), &size), 0);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("CUPS_SERVER", QString("127.0.0.1:%1").arg(ntohs(address.sin_port)));
    const auto before = std::chrono::steady_clock::now();
    Begin(environment);
    TurnTo("Halvern V0.99");
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(12));
    const int asked = ::accept4(server, nullptr, nullptr, SOCK_NONBLOCK);
    EXPECT_GE(asked, 0) << "the program has asked another print server";
    End();
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "run" / "halvern.lock"));
    ::close(asked);
    ::close(server);
}

TEST_F(OtherProcess, WritesNoSettings) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(folder.Path().string() + "/home"));
    std::filesystem::create_directories("home");
    environment.remove("XDG_CONFIG_HOME");
    Begin(environment);
    TurnTo("Halvern V0.99");
    Press("alt+f");
    Press("g");
    TurnTo("Get List File");
    Press("Escape");
    TurnTo("Halvern V0.99");
    End();
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    EXPECT_FALSE(std::filesystem::exists("home/.config/QtProject.conf"));
}

TEST_F(OtherProcess, NeedsNoHomeNoFolderNoLanguageAndNoStreams) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // In /proc nobody can make a file, not even root.
    for (const char* name : {"HOME", "TMPDIR", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        environment.insert(name, "/proc/none");
    environment.insert("LC_ALL", "xx_XX.UTF-8");
    environment.insert("TZ", "Nowhere/AtAll");
    std::filesystem::create_directories("gone");
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory("gone");
    process.start("bash", {"-c", "rmdir \"$PWD\" && exec \"$0\" <&- >&- 2>&-", HALVERN_EXECUTABLE});
    ASSERT_TRUE(process.waitForStarted());
    TurnTo("Halvern V0.99");
    EXPECT_FALSE(std::filesystem::exists("gone"));
    Press("alt+f");
    Press("g");
    TurnTo("Get List File");
    Press("Escape");
    TurnTo("Halvern V0.99");
    End();
}

TEST_F(OtherProcess, SaysSoWithoutADisplay) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    Begin(environment);
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("display"));
}

}  // namespace
}  // namespace halvern
