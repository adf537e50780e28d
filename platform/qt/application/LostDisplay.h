#pragma once

#include <functional>

/// Runs `save` when the display is lost, before the toolkit ends the process where it stands, with status 1. Wants the
/// application object; once.
void OnLostDisplay(std::function<void()> save);
