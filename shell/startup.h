#pragma once

/// Brings up the file types, the application object and the timer window, and runs the event loop until the program
/// quits.
void _Main();
