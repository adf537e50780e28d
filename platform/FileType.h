#pragma once

#include <string>

#include "platform/Property.h"

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
