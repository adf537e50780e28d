#pragma once

#include <fstream>
#include <string>
#include <string_view>

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
