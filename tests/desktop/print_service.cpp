#include "desktop/print_service.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "desktop/user.h"

namespace halvern::test {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kServicePatience{40};

// The document goes to the device as the program has made it.
constexpr const char* kDescription = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PAPER.PPD"
*Manufacturer: "Paper"
*Product: "(Paper)"
*ModelName: "Paper"
*ShortNickName: "Paper"
*NickName: "Paper"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
)ppd";

void Write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::app);
    out << text;
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
}

/// A program of the system's administration, which may stand where an ordinary user's path does not lead.
std::string FindProgram(const std::string& name) {
    std::istringstream path(std::string(std::getenv("PATH")) + ":/usr/sbin:/sbin");
    for (std::string folder; std::getline(path, folder, ':');)
        if (::access((folder + "/" + name).c_str(), X_OK) == 0)
            return folder + "/" + name;
    throw std::runtime_error("no program " + name);
}

std::string RightTrimmed(const std::string& line) { return line.substr(0, line.find_last_not_of(" \r") + 1); }

std::string OutputOf(const std::string& command) {
    const auto [output, status] = RunCommand(command);
    if (status != 0)
        throw std::runtime_error(command + ": " + output);
    return output;
}

}  // namespace

PrintService::PrintService(const fs::path& folder) : folder_(folder), socket_(folder / "socket") {
    for (const char* name : {"cache", "state", "spool/tmp", "programs/filter", "documents"})
        fs::create_directories(folder_ / name);
    WriteSettings();
    WritePrinter("Printer", kInk);
    WritePrinter("DefaultPrinter", kLaser);
    WriteDevice();
    ::setenv("CUPS_SERVER", socket_.c_str(), 1);
    // A user's own choice of a printer would come before the service's.
    ::unsetenv("LPDEST");
    ::unsetenv("PRINTER");
    Start();
}

PrintService::~PrintService() {
    Stop();
    ::close(printed_);
}

void PrintService::WriteSettings() {
    const std::string in = folder_.string();
    Write(folder_ / "files.conf", "ServerRoot " + in + "/root\nCacheDir " + in + "/cache\nStateDir " + in +
                                      "/state\nRequestRoot " + in + "/spool\nTempDir " + in + "/spool/tmp\nServerBin " +
                                      in + "/programs\nAccessLog " + in + "/access_log\nErrorLog " + in +
                                      "/error_log\nPageLog " + in + "/page_log\nPrintcap " + in + "/printcap\n");
    Write(folder_ / "scheduler.conf", "Listen " + socket_.string() +
                                          "\nBrowsing Off\nLogLevel info\nPreserveJobHistory No\n"
                                          "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                          "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n");
}

void PrintService::WritePrinter(const std::string& kind, const std::string& name) {
    Write(folder_ / "root" / "ppd" / (name + ".ppd"), kDescription);
    Write(folder_ / "root" / "printers.conf",
          "<" + kind + " " + name + ">\nInfo " + name +
              "\nDeviceURI tofile:/\nState Idle\nAccepting Yes\nShared No\nJobSheets none none\nOpPolicy default\n"
              "ErrorPolicy abort-job\n</" +
              kind + ">\n");
}

// Without arguments a device tells what printers it has found; with them it prints a job, whose number comes first and
// whose file comes last. A file has its name once it is whole.
void PrintService::WriteDevice() {
    const fs::path device = folder_ / "programs" / "backend" / "tofile";
    Write(device,
          "#!/bin/sh\n"
          "[ $# -gt 0 ] || exit 0\n"
          "cd '" +
              folder_.string() +
              "/documents' || exit 1\n"
              "cat \"$6\" >job && mv job \"$PRINTER-$1.pdf\" && echo \"$PRINTER-$1.pdf\" >../printed\n");
    // The scheduler runs no device that others than its owner may change.
    fs::permissions(device, fs::perms::owner_all);
    // What the scheduler starts a device with is its own.
    fs::create_directory_symlink("/usr/lib/cups/daemon", folder_ / "programs" / "daemon");
    if (::mkfifo((folder_ / "printed").c_str(), 0600) != 0)
        throw std::runtime_error("no pipe in " + folder_.string());
    // Open at both ends: it has no end between two documents.
    printed_ = ::open((folder_ / "printed").c_str(), O_RDWR | O_CLOEXEC);
}

void PrintService::Start() {
    const std::string program = FindProgram("cupsd");
    const std::string settings = folder_ / "scheduler.conf", files = folder_ / "files.conf", log = folder_ / "log";
    scheduler_ = ::fork();
    if (scheduler_ == 0) {
        // It ends with the test, however that ends.
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int out = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        ::dup2(out, STDOUT_FILENO);
        ::dup2(out, STDERR_FILENO);
        ::execl(program.c_str(), program.c_str(), "-f", "-c", settings.c_str(), "-s", files.c_str(), nullptr);
        ::_exit(127);
    }
    const auto deadline = std::chrono::steady_clock::now() + kServicePatience;
    while (!Answers()) {
        if (std::chrono::steady_clock::now() > deadline || ::waitpid(scheduler_, nullptr, WNOHANG) != 0)
            throw std::runtime_error("the scheduler does not come up: " + OutputOf("cat " + log));
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

bool PrintService::Answers() const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket_.native().size() >= sizeof address.sun_path)
        throw std::runtime_error("too long for a socket: " + socket_.string());
    socket_.native().copy(address.sun_path, sizeof address.sun_path);
    const int client = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers = ::connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(client);
    return answers;
}

fs::path PrintService::AwaitDocument() {
    std::string name;
    for (char c = 0; c != '\n'; name += c) {
        pollfd ready{.fd = printed_, .events = POLLIN, .revents = 0};
        if (::poll(&ready, 1, static_cast<int>(std::chrono::milliseconds(kServicePatience).count())) != 1 ||
            ::read(printed_, &c, 1) != 1)
            throw std::runtime_error("no document is printed: " +
                                     OutputOf("tail -n 20 '" + (folder_ / "error_log").string() + "'"));
    }
    name.pop_back();
    return folder_ / "documents" / name;
}

void PrintService::Stop() {
    if (scheduler_ < 0)
        return;
    ::kill(scheduler_, SIGTERM);
    ::waitpid(scheduler_, nullptr, 0);
    scheduler_ = -1;
}

void PrintService::Remove(const char* printer) { OutputOf(FindProgram("lpadmin") + " -x " + printer); }

void PrintService::Refuse(const char* printer) { OutputOf(FindProgram("cupsreject") + " " + printer); }

// Set apart by the width of a character, the text keeps its columns. A page ends with a form feed.
std::vector<Page> PagesOf(const fs::path& document) {
    std::istringstream text(OutputOf("pdftotext -layout -fixed 6 -enc UTF-8 '" + document.string() + "' -"));
    std::vector<Page> pages;
    for (std::string page; std::getline(text, page, '\f');) {
        pages.emplace_back();
        std::istringstream lines(page);
        for (std::string line; std::getline(lines, line);)
            pages.back().push_back(RightTrimmed(line));
    }
    return pages;
}

QImage FirstPageOf(const fs::path& document, int dotsPerInch) {
    const std::string picture = document.string() + "-page";
    OutputOf("pdftoppm -png -singlefile -r " + std::to_string(dotsPerInch) + " '" + document.string() + "' '" +
             picture + "'");
    return QImage(QString::fromStdString(picture + ".png"));
}

QImage PictureIn(const fs::path& document) {
    const std::string name = document.string() + "-picture";
    OutputOf("pdfimages -png '" + document.string() + "' '" + name + "'");
    if (fs::exists(name + "-001.png"))
        throw std::runtime_error("several pictures in " + document.string());
    return QImage(QString::fromStdString(name + "-000.png"));
}

}  // namespace halvern::test
