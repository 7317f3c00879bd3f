#pragma once

#include <sys/types.h>

#include <QImage>

#include <filesystem>
#include <string>
#include <vector>

namespace halvern::test {

/// The two printers of the test's print service, the first of them its default. Their paper is A4, and they leave a margin of a quarter of an inch.
inline constexpr const char* kLaser = "Laser";
inline constexpr const char* kInk = "Ink";
inline constexpr double kPaperWidthPoints = 595.0, kPaperHeightPoints = 842.0, kMarginPoints = 18.0;

/// A print service of the test's own: a scheduler with all its files in one folder, and two printers that put each
/// document, as the program has sent it, into a file. While it lives, the programs of this test print there.
class PrintService {
  public:
    /// Given     folder   is made; the scheduler may be run by any user
    explicit PrintService(const std::filesystem::path& folder);
    ~PrintService();
    PrintService(const PrintService&) = delete;
    PrintService& operator=(const PrintService&) = delete;

    /// Waits until a printer has put the next document out. Returns its file, named after the printer and the job.
    std::filesystem::path AwaitDocument();

    /// The scheduler is gone, as after a crash or when its machine is switched off.
    void Stop();
    /// A printer is taken away, or takes no more documents.
    void Remove(const char* printer);
    void Refuse(const char* printer);

  private:
    void WriteSettings();
    void WritePrinter(const std::string& kind, const std::string& name);
    void WriteDevice();
    void Start();
    bool Answers() const;

    std::filesystem::path folder_;
    std::filesystem::path socket_;
    int printed_ = -1;  ///< a pipe, a line for each document that is ready
    pid_t scheduler_ = -1;
};

/// The lines of a page, without the blanks at their ends; each character stands in its column.
using Page = std::vector<std::string>;

/// The text of a document, page after page.
std::vector<Page> PagesOf(const std::filesystem::path& document);

/// The first page of a document as it looks on paper.
QImage FirstPageOf(const std::filesystem::path& document, int dotsPerInch);

/// The one picture that is laid on the pages of a document, in its own pixels.
QImage PictureIn(const std::filesystem::path& document);

}  // namespace halvern::test
