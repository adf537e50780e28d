#pragma once

#include <string>

#include "platform/Variant.h"

/// A small key-value store: a dictionary in memory and a text file in the user's folder for settings. It
/// writes a property list and reads any file, looking for four tags only. Nothing is escaped. An object lives
/// for one read or one write. A message box says what is missing. An unusable folder or file throws
/// NilObjectException.
class Preferences {
  public:
    virtual ~Preferences() = default;

    /// The name of the settings file, to be set before it is read or written.
    std::string Filename;
    /// The name of a second file, which holds a text without a format.
    std::string PagePrefsFilename;

    /// Adds the entries of the file to the dictionary; an entry replaces an earlier one of the same key. All
    /// values read are Strings. False if there is no file, or no key in it.
    virtual bool ReadFile();

    /// Writes all entries. The old file is deleted first, so it is lost if the new one can't be written.
    virtual void WriteFile();

    /// The value stored under `key`. If there is none, `initial` is stored first, to be written as well.
    virtual Variant Get(const std::string& key, const Variant& initial);
    virtual void Put(const std::string& key, const Variant& value);
    virtual void Clear();

    virtual void WritePagePrefsFile(const std::string& text);
    /// The whole second file, including its last line end; empty if there is none. Needs Filename as well.
    virtual std::string ReadPagePrefsFile();

    /// Empties the dictionary. To be called straight after the object is made.
    virtual void Constructor();

  private:
    Dictionary mDict;
};
