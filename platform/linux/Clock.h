#pragma once

/// Microseconds since the machine was started, those in which it slept included.
double MicrosecondsSinceBoot();
