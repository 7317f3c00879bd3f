#pragma once

#include <QFileDialog>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/desktop.h"

namespace halvern {

enum class FileDialogKind { kExistingFile, kNewFile };

/// One entry of a dialog's list of file types.
struct FileFilter {
    QString description;   ///< as it is shown, blanks included
    QStringList patterns;  ///< "*.LST"
};

/// Takes "description|pattern|description|pattern" apart. Patterns of one entry are separated by semicolons; "*.*"
/// means every name, also one without a dot.
std::vector<FileFilter> ParseFilter(std::string_view filter);

/// The toolkit's own file dialog, so that it is the same on every desktop. It starts in the current directory.
class FileDialogWindow : public QFileDialog {
  public:
    FileDialogWindow(QWidget* parent, const FileDialog& settings, FileDialogKind kind);

    /// Waits for the user. The absolute path, or nothing when the user cancelled.
    std::optional<std::string> Ask();

    void accept() override;

  protected:
    void childEvent(QChildEvent* event) override;

  private:
    QString Chosen() const;
    void SetFilters(const std::vector<FileFilter>& filters);
    bool TakesExisting(const QString& path);
    bool TakesNew(const QString& path);
    void Refuse(const QString& path, const char* reason);
    bool Confirm(const QString& path, const char* question);

    int flags_;
    FileDialogKind kind_;
    QString taken_;  ///< the path that was accepted
};

}  // namespace halvern
