#pragma once

#include <QtWidgets/QWidget>
#include <filesystem>
#include <string>

/// What Host::SaveFile does, over `owner`.
std::filesystem::path AskWhereToSave(QWidget* owner, const std::string& filter, const std::filesystem::path& proposal);
