#include "desktop/file_dialog.h"

#include <QChildEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QStyledItemDelegate>

#include "desktop/message_box.h"
#include "render/shown_text.h"

namespace halvern {

namespace {

QStringList ParsePatterns(const QString& text) {
    QStringList patterns;
    for (const QString& pattern : text.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        patterns += pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed();
    return patterns;
}

/// Shows the names of files, which may hold any character, each on its one line.
class NameDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override {
        return ShownLine(QStyledItemDelegate::displayText(value, locale).toStdString());
    }
};

}  // namespace

std::vector<FileFilter> ParseFilter(std::string_view filter) {
    std::vector<FileFilter> filters;
    const QStringList parts = ShownLine(filter).split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters.push_back({parts[i], ParsePatterns(parts[i + 1])});
    return filters;
}

FileDialogWindow::FileDialogWindow(QWidget* parent, const FileDialog& settings, FileDialogKind kind)
    : QFileDialog(parent), flags_(settings.flags), kind_(kind) {
    // A file is chosen here, not renamed or deleted. The questions are this program's own, see accept.
    setOption(DontUseNativeDialog);
    setOption(DontUseCustomDirectoryIcons);
    setOption(DontResolveSymlinks);
    setOption(DontConfirmOverwrite);
    setOption(ReadOnly, kind == FileDialogKind::kExistingFile);
    setFileMode(kind == FileDialogKind::kExistingFile ? ExistingFile : AnyFile);
    setAcceptMode(kind == FileDialogKind::kExistingFile ? AcceptOpen : AcceptSave);
    if (!settings.title.empty())
        setWindowTitle(ShownTitle(settings.title));
    setWindowModality(Qt::ApplicationModal);
    setDirectory(QDir::currentPath());
    setDefaultSuffix(ShownLine(settings.defaultExtension));
    SetFilters(ParseFilter(settings.filter));
    setItemDelegate(new NameDelegate(this));
    if (!settings.fileName.empty())
        selectFile(QFile::decodeName(settings.fileName.c_str()));
}

// The toolkit reads the patterns of a filter from the brackets at its end. What the list shows is put in afterwards.
void FileDialogWindow::SetFilters(const std::vector<FileFilter>& filters) {
    if (filters.empty())
        return;
    QStringList texts;
    for (const auto& filter : filters)
        texts += filter.description + QLatin1String(" (") + filter.patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    setNameFilters(texts);
    auto* shown = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    for (int i = 0; shown != nullptr && i < shown->count(); ++i)
        shown->setItemText(i, filters[static_cast<std::size_t>(i)].description);
}

std::optional<std::string> FileDialogWindow::Ask() {
    if (exec() != Accepted)
        return std::nullopt;
    return QFile::encodeName(QDir::cleanPath(taken_)).toStdString();
}

void FileDialogWindow::accept() {
    const QString path = Chosen();
    // A folder is entered, and nothing typed does nothing: both are the toolkit's.
    if (path.isEmpty() || QFileInfo(path).isDir()) {
        QFileDialog::accept();
        return;
    }
    if (kind_ == FileDialogKind::kExistingFile ? !TakesExisting(path) : !TakesNew(path))
        return;
    taken_ = path;
    QDialog::accept();
}

/// The path of what was clicked or typed; empty for nothing.
///
/// In what is typed the toolkit looks for several names, each between quotes. One file is asked for here: a quote is a
/// letter of its name, but for a pair around the whole.
QString FileDialogWindow::Chosen() const {
    const QStringList files = selectedFiles();
    const QString path = files.isEmpty() ? QString() : files.constFirst();
    const QString typed = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
    const auto quotes = typed.count(QLatin1Char('"'));
    const bool isQuoted = quotes == 2 && typed.startsWith(QLatin1Char('"')) && typed.endsWith(QLatin1Char('"'));
    if (quotes == 0 || isQuoted || path.endsWith(QLatin1Char('/') + typed))
        return path;
    QString named = directory().absoluteFilePath(typed);
    if (!defaultSuffix().isEmpty() && QFileInfo(named).suffix().isEmpty())
        named += QLatin1Char('.') + defaultSuffix();
    return named;
}

// The boxes that the toolkit brings up itself, when a file is to be renamed say, name files too.
void FileDialogWindow::childEvent(QChildEvent* event) {
    QFileDialog::childEvent(event);
    if (auto* box = event->polished() ? qobject_cast<QMessageBox*>(event->child()) : nullptr)
        box->setTextFormat(Qt::PlainText);
}

bool FileDialogWindow::TakesExisting(const QString& path) {
    if (QFileInfo(path).isFile())
        return true;
    Refuse(path, "File not found.\r\nPlease verify the correct file name was given.");
    return false;
}

bool FileDialogWindow::TakesNew(const QString& path) {
    const QFileInfo file(path);
    if ((flags_ & kPathMustExist) != 0 && !file.dir().exists()) {
        Refuse(path, "Path does not exist.\r\nPlease verify the correct path was given.");
        return false;
    }
    // A zero byte would cut the name short on its way to the system.
    if (path.contains(QChar(QChar::Null)) || (file.exists() && !file.isFile())) {
        Refuse(path, "This is no file that can be written.");
        return false;
    }
    if (file.exists() && (flags_ & kAskBeforeOverwriting) != 0)
        return Confirm(path, "already exists.\r\nDo you want to replace it?");
    if (!file.exists() && (flags_ & kAskBeforeCreating) != 0)
        return Confirm(path, "does not exist.\r\nDo you want to create it?");
    return true;
}

void FileDialogWindow::Refuse(const QString& path, const char* reason) {
    const std::string text = path.toStdString() + "\r\n" + reason;
    MessageBoxWindow(this, text, kExclamation, windowTitle().toStdString()).Ask();
}

bool FileDialogWindow::Confirm(const QString& path, const char* question) {
    const std::string text = path.toStdString() + " " + question;
    MessageBoxWindow box(this, text, kYesNo + kExclamation + kDefaultSecond, windowTitle().toStdString());
    return box.Ask() == Answer::kYes;
}

}  // namespace halvern
