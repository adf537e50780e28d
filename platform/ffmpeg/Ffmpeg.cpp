#include "platform/ffmpeg/Ffmpeg.h"

#include <stdexcept>
#include <string>

void Fail(int error, const char* step) {
    char reason[AV_ERROR_MAX_STRING_SIZE];
    av_strerror(error, reason, sizeof reason);
    throw std::runtime_error(std::string(step) + ": " + reason);
}
