#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include "benchmarks/movie/jobs.h"
#include "benchmarks/support/ProgramOffscreen.h"
#include "platform/Text.h"

// Makes one movie in one way and prints the seconds that it took.

namespace {

const std::map<std::string, MovieCodec> kCodecs = {
    {"uncompressed", MovieCodec::Uncompressed},
    {"h264", MovieCodec::H264},
    {"h265", MovieCodec::H265},
    {"mpeg4", MovieCodec::Mpeg4},
    {"prores", MovieCodec::ProRes4444},
    {"mjpeg", MovieCodec::PhotoJpeg},
    {"png", MovieCodec::Png},
    {"animation", MovieCodec::Animation},
};

int Usage() {
    std::fputs("usage: movie_bench dialog|distinct|encoder|frames CODEC WIDTH HEIGHT SECONDS RATE FILE\n", stderr);
    return 2;
}

double Run(const std::string& contender, const MovieJob& job, RecordingHost& host) {
    if (contender == "dialog") return RunDialog(job, host);
    if (contender == "distinct") return RunDistinct(job, host);
    return RunEncoder(job, contender == "encoder" ? EncoderInput::Pictures : EncoderInput::Frames);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 8 || !kCodecs.contains(argv[2])) return Usage();
    ProgramOffscreen program(argv[0]);
    const MovieJob job{.settings = {.codec = kCodecs.at(argv[2]), .frameRate = Val(argv[6])},
                       .width = ToInt32(Val(argv[3])),
                       .height = ToInt32(Val(argv[4])),
                       .startTime = ToInt32(Val(argv[5])),
                       .file = argv[7]};
    std::printf("%.6f\n", Run(argv[1], job, program.host));
    return std::filesystem::exists(job.file) ? EXIT_SUCCESS : EXIT_FAILURE;
}
