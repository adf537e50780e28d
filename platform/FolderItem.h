#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/Ref.h"
#include "platform/Values.h"

class EditableMovie;
class Picture;

/// A kind of file.
class FileType {
  public:
    Property<std::string> Name;
    /// The endings of file names, each with its point, separated by semicolons.
    Property<std::string> Extensions;
    Property<std::string> MacType;
    Property<std::string> MacCreator;

    /// The text form, which dialogs for files take as their filter: "Name (*.one *.two)".
    std::string ToString() const;
};

/// A file being read. Bytes come as they stand in the file, in no encoding.
class TextInputStream {
  public:
    explicit TextInputStream(std::ifstream file) : file_(std::move(file)) {}

    /// All that is left of the file.
    std::string ReadAll();
    void Close() { file_.close(); }

  private:
    std::ifstream file_;
};

/// A file being written.
class TextOutputStream {
  public:
    explicit TextOutputStream(std::ofstream file) : file_(std::move(file)) {}

    /// Writes the text and one line feed.
    void WriteLine(std::string_view text);
    void Close() { file_.close(); }

  private:
    std::ofstream file_;
};

/// A reference to a file or folder, which need not exist.
class FolderItem {
  public:
    explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& Path() const { return path_; }

    /// The folder that holds this item; nil for the root.
    Ref<FolderItem> Parent() const;

    /// The item of that name in this folder, whether it exists or not. Nil when no file can have that name: one that
    /// is empty, "." or "..", longer than 255 bytes, or holds a "/" or a zero byte.
    Ref<FolderItem> Child(const std::string& name) const;

    bool Exists() const;

    /// Removes the file, or the folder if it is empty. A failure isn't reported.
    void Delete();

    /// The file, opened for reading; nil when it can't be.
    Ref<TextInputStream> OpenAsTextFile() const;

    /// A new empty file in place of what was there, opened for writing; nil when it can't be made.
    Ref<TextOutputStream> CreateTextFile();

    /// The picture in the file (BMP, PNG, PICT); nil when there is none. Where a screen is dense, the one of twice the
    /// size in the file beside it whose name ends in "@2x", if there is one, shown at the same size.
    Ref<Picture> OpenAsPicture() const;

    /// A new movie with no track in place of what was there; the file exists from here on. Nil when it can't be made.
    Ref<EditableMovie> CreateMovie();

    /// Opens the file with the desktop's program for its type, in front if `activate`; doesn't wait.
    void Launch(bool activate) const;

    /// Four-character codes of owner and type. No file system of Linux keeps them, so nothing is done.
    void MacCreator(const std::string&) {}
    void MacType(const std::string&) {}

  private:
    std::filesystem::path path_;
};

namespace SpecialFolder {

/// The user's folder for settings, made when it is missing; nil when it can't be made.
Ref<FolderItem> Preferences();

}  // namespace SpecialFolder

/// The file that the user chose in the desktop's dialog for saving, which offers `defaultName` where the latest movie
/// was made and shows the files of `filter` (a FileType's text form). Nil when the user cancelled.
Ref<FolderItem> GetSaveFolderItem(const std::string& filter, const std::string& defaultName);
