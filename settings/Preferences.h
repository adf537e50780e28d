#pragma once

#include <string>

#include "platform/Variant.h"

/// A small key-value store: a dictionary in memory and a text file in the user's settings folder. It writes a
/// property list without escaping, and reads any file by searching for four tags. Use an object for one read
/// or one write only. Shows a message box if a file name or all entries are missing. Throws
/// NilObjectException if the folder or a file can't be used.
class Preferences {
  public:
    virtual ~Preferences() = default;

    /// The name of the settings file. Must be set before reading or writing.
    std::string Filename;
    /// The name of the page preferences file, which holds plain text.
    std::string PagePrefsFilename;

    /// Adds the entries of the file to the dictionary, all as Strings; an entry replaces an earlier entry of
    /// the same key. Returns false if the file doesn't exist or contains no key.
    virtual bool ReadFile();

    /// Writes all entries. Deletes the old file first, so it is lost if the new file can't be written.
    virtual void WriteFile();

    /// Returns the value of `key`. Stores `initial` first if there is none, so that WriteFile writes it too.
    virtual Variant Get(const std::string& key, const Variant& initial);
    virtual void Put(const std::string& key, const Variant& value);
    virtual void Clear();

    virtual void WritePagePrefsFile(const std::string& text);
    /// Returns the whole page preferences file, or "" if it doesn't exist. Filename must be set, too.
    virtual std::string ReadPagePrefsFile();

    /// Empties the dictionary. Must be called directly after construction.
    virtual void Constructor();

  private:
    Dictionary mDict;
};
