#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QMimeDatabase>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <cerrno>

#include "platform/qt/dialogs/DesktopHost.h"
#include "platform/qt/drawing/Styles.h"

namespace fs = std::filesystem;

namespace {

int Ask(QWidget* owner, const QString& title, const QString& text, QMessageBox::StandardButtons answers) {
    QMessageBox box(QMessageBox::NoIcon, title, text, answers, owner);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec();
}

/// Returns a name filter in which the name of a MIME type is replaced by the type's description.
QString Readable(const QString& filter) {
    const QString name = filter.section(QStringLiteral(" ("), 0, 0);
    const QMimeType type = QMimeDatabase().mimeTypeForName(name);
    return type.isValid() ? type.comment() + filter.mid(name.size()) : filter;
}

/// Returns the initial folder: `wanted` if it exists, else the user's movies folder, else the home folder.
QString FirstFolder(const fs::path& wanted) {
    const QString movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    if (QFileInfo(ToQString(wanted)).isDir()) return ToQString(wanted);
    return QFileInfo(movies).isDir() ? movies : QDir::homePath();
}

/// Returns the file's name, elided if it is so long that a message could be wider than the screen.
QString ShortName(const fs::path& file) {
    constexpr int kWidest = 300;
    return QFontMetrics(QApplication::font()).elidedText(ToQString(file.filename()), Qt::ElideMiddle, kWidest);
}

int AccessError(const fs::path& path, int access) {
    return faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0 ? 0 : errno;
}

/// Returns the reason why a file can't be written; empty if none is known. Creates and changes nothing.
std::string Obstacle(const fs::path& file) {
    std::error_code ignored;
    if (fs::is_directory(file, ignored)) return "it is a folder";
    if (fs::exists(file, ignored) && !fs::is_regular_file(file, ignored)) return "it is a device or a pipe";
    int error = AccessError(file, R_OK | W_OK);
    if (error == ENOENT) error = AccessError(file.parent_path(), W_OK | X_OK);
    return error == 0 ? "" : std::generic_category().message(error);
}

/// Returns Yes if the file may be written, NoButton if the program quits; else the user must choose again.
int AskAbout(QWidget* owner, const fs::path& file) {
    const QString name = ShortName(file);
    if (const std::string obstacle = Obstacle(file); !obstacle.empty()) {
        const QString path = ToQString(file.parent_path() / name.toStdString());
        const QString text = QStringLiteral(
            "The file %1 can't be written: %2.\n"
            "Please choose another name or folder.");
        return Ask(owner, QStringLiteral("Can't Save File"), text.arg(path, ToQString(obstacle)), QMessageBox::Ok);
    }
    std::error_code ignored;
    if (!fs::exists(file, ignored)) return QMessageBox::Yes;
    const QString text = QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(name);
    return Ask(owner, QStringLiteral("Replace File"), text, QMessageBox::No | QMessageBox::Yes);
}

}  // namespace

// AskAbout replaces the dialog's own question, which some desktops ask before the file's extension is added.
fs::path DesktopHost::SaveFile(const std::string& filter, const fs::path& proposal) {
    QWidget* const owner = Owner();
    QFileDialog dialog(owner, QStringLiteral("Save As"));  // some desktops' dialogs have no default title
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilter(Readable(ToQString(filter)));
    fs::path file = proposal;
    int answer = QMessageBox::No;
    while (answer != QMessageBox::Yes) {
        if (answer == QMessageBox::NoButton) return {};
        dialog.setDirectory(FirstFolder(file.parent_path()));
        dialog.selectFile(ToQString(file.filename()));
        if (dialog.exec() != QDialog::Accepted) return {};
        file = dialog.selectedFiles().constFirst().toStdString();
        if (file.filename().string().find('.') == std::string::npos) file += proposal.extension();
        answer = AskAbout(owner, file);
    }
    return file;
}
