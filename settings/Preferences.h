#pragma once

#include <string>

#include "platform/Variant.h"

/// A small key-value store: a dictionary in memory, and a text file in the user's folder for settings. The file that it
/// writes is a property list; the one that it reads may be anything, since only four tags are looked for in it. Nothing
/// is escaped. An object lives for one read or one write. What the user must know is told in a message box; a folder or
/// file that can't be used at all throws NilObjectException.
class Preferences {
  public:
    virtual ~Preferences() = default;

    /// The name of the settings file, to be set before it is read or written.
    std::string Filename;
    /// The name of a second file, which holds a text of no format.
    std::string PagePrefsFilename;

    /// Adds the entries of the file to those that are here; a later entry replaces an earlier one of the same key. All
    /// values read are Strings. False if there is no file, or no key in it.
    virtual bool ReadFile();

    /// Writes all entries in place of the old file, which is gone even when the new one can't be made.
    virtual void WriteFile();

    /// The value stored under `key`. If there is none, `initial` is stored first, so that the next WriteFile writes it.
    virtual Variant Get(const std::string& key, const Variant& initial);
    virtual void Put(const std::string& key, const Variant& value);
    virtual void Clear();

    virtual void WritePagePrefsFile(const std::string& text);
    /// The whole second file, its last line end included; empty if there is none. Needs Filename as well.
    virtual std::string ReadPagePrefsFile();

    /// To be called straight after the object is made.
    virtual void Constructor();

  private:
    Dictionary mDict;
};
