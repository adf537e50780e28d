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
    /// The file name extensions, each with its leading point, separated by semicolons.
    Property<std::string> Extensions;
    Property<std::string> MacType;
    Property<std::string> MacCreator;

    /// Returns the type in the form of a file dialog's filter: "Name (*.one *.two)".
    std::string ToString() const;
};

/// A file being read. Its bytes aren't converted.
class TextInputStream {
  public:
    explicit TextInputStream(std::ifstream file) : file_(std::move(file)) {}

    /// Returns the rest of the file.
    std::string ReadAll();
    void Close() { file_.close(); }

  private:
    std::ifstream file_;
};

/// A file being written.
class TextOutputStream {
  public:
    explicit TextOutputStream(std::ofstream file) : file_(std::move(file)) {}

    /// Writes the text and a line feed.
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

    /// Returns the folder that contains this item; nil for the root.
    Ref<FolderItem> Parent() const;

    /// Returns the item called `name` in this folder, which need not exist. Returns nil if `name` isn't a
    /// valid file name: it is empty, "." or "..", is longer than 255 bytes, or contains a "/" or a zero byte.
    Ref<FolderItem> Child(const std::string& name) const;

    bool Exists() const;
    /// Removes the file or empty folder. Failures aren't reported.
    void Delete();

    /// Opens the file for reading; returns nil if that fails.
    Ref<TextInputStream> OpenAsTextFile() const;
    /// Creates the file, or truncates an existing one, and opens it for writing; returns nil if that fails.
    Ref<TextOutputStream> CreateTextFile();

    /// Reads the picture in the file (BMP, PNG, PICT); returns nil if that fails. At a scale factor above 1,
    /// prefers a file in the same folder with "@2x" before the extension and twice the pixels.
    Ref<Picture> OpenAsPicture() const;
    /// Creates a movie without a track, overwriting an existing plain file. Returns nil if that fails.
    Ref<EditableMovie> CreateMovie();

    /// Opens the file with the desktop's program for its type; doesn't wait. `activate` has no effect.
    void Launch(bool activate) const;

    // The setters of four-character codes do nothing, because Linux file systems can't store the codes.
    void MacCreator(const std::string&) {}
    void MacType(const std::string&) {}

  private:
    std::filesystem::path path_;
};

namespace SpecialFolder {
/// Returns the user's folder for settings, after creating it if it is missing; nil if that fails.
Ref<FolderItem> Preferences();
}  // namespace SpecialFolder

/// Shows the desktop's Save dialog for files of `filter` (see FileType::ToString), which proposes
/// `defaultName` in the folder of the latest movie. Returns the chosen file; nil if the user cancels.
Ref<FolderItem> GetSaveFolderItem(const std::string& filter, const std::string& defaultName);
