#pragma once

#include <filesystem>
#include <fstream>
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

    /// The text form that a file dialog takes as its filter: "Name (*.one *.two)".
    std::string ToString() const;
};

/// A file being read. The bytes of the file aren't converted.
class TextInputStream {
  public:
    explicit TextInputStream(std::ifstream file) : file_(std::move(file)) {}

    /// The rest of the file.
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
    void WriteLine(std::string_view text) { file_ << text << '\n'; }
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

    /// The item of that name in this folder, whether it exists or not. Nil when no file can have that name:
    /// it is empty, "." or "..", longer than 255 bytes, or holds a "/" or a zero byte.
    Ref<FolderItem> Child(const std::string& name) const;

    bool Exists() const;
    /// Removes the file, or the folder if it is empty. A failure isn't reported.
    void Delete();

    /// The file, opened for reading; nil when it can't be.
    Ref<TextInputStream> OpenAsTextFile() const;
    /// A new empty file, which replaces an old one, opened for writing; nil when it can't be made.
    Ref<TextOutputStream> CreateTextFile();

    /// The picture in the file (BMP, PNG, PICT); nil if it can't be read. On a dense screen, a file beside it
    /// whose name ends in "@2x", with twice the pixels for the same size, is taken instead if there is one.
    Ref<Picture> OpenAsPicture() const;
    /// A new movie without a track, in place of the file, which has to be a plain one. Nil if it can't be made.
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
/// The user's folder for settings, which is made if it is missing; nil when it can't be made.
Ref<FolderItem> Preferences();
}  // namespace SpecialFolder

/// Lets the user choose a file in the desktop's dialog for saving, which proposes `defaultName` in the folder
/// of the latest movie and shows the files of `filter` (a FileType's text form). Nil when the user cancels.
Ref<FolderItem> GetSaveFolderItem(const std::string& filter, const std::string& defaultName);
