#pragma once

/// Brings up the application object, then the timer window, and runs the event loop until the program quits.
void _Main();
