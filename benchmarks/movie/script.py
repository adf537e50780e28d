"""What someone would write in an afternoon: draws the same clock with pycairo and pipes raw pictures into ffmpeg.

usage: script.py CODEC WIDTH HEIGHT SECONDS RATE FILE
"""

import math
import subprocess
import sys

import cairo

TURN, TOP = 6.283058, 4.7122935
# As platform/ffmpeg/Codecs.cpp and Encoder.cpp set the encoders up, at the quality that the dialog proposes.
ENCODERS = {
    "h264": "-c:v libx264 -preset veryfast -rc-lookahead 5 -x264-params subme=0:me=dia:weightp=0:bframes=0 -crf 16 -tag:v avc1 "
            "-vf scale=out_color_matrix=bt709:out_range=tv -pix_fmt yuv420p "
            "-colorspace bt709 -color_primaries bt709 -color_trc bt709 -color_range tv",
    "png": "-c:v png -compression_level 1 -pix_fmt rgb24",
}


def draw(context, width, height, seconds, shows_time_up):
    diameter = 0.97 * 0.9 * min(width, height)
    cx, cy = width / 2, height / 2
    x, y = int(cx), int(cy)
    context.set_source_rgb(0x9F / 255, 0x9F / 255, 0x9F / 255)
    context.paint()
    context.arc(x, y, diameter / 2, 0, 2 * math.pi)
    context.set_source_rgb(1, 1, 1)
    context.fill()
    if seconds > 0:
        angle = TURN * seconds / 3600
        context.move_to(x, y)
        context.arc(x, y, diameter / 2, TOP - angle, TOP)
        context.set_source_rgb(1, 0, 0)
        context.fill()
    context.set_source_rgb(0, 0, 0)
    context.arc(x, y, diameter / 2, 0, 2 * math.pi)
    context.set_line_width(max(3 * diameter / 100, 1))
    context.stroke()
    for i in range(60):
        long = i % 5 == 0
        length = (10 if long else 5) * diameter / 100
        cosine, sine = math.cos(TURN * i / 60), math.sin(TURN * i / 60)
        inner = diameter / 2 - length
        left, top = int(cx + cosine * inner), int(cy + sine * inner)
        context.move_to(left, top)
        context.line_to(left + cosine * length, top + sine * length)
        context.set_line_width((2 if long else 1) * diameter / 100)
        context.stroke()
    if shows_time_up:
        context.set_font_size(diameter / 8)
        extents = context.text_extents("Time is Up!")
        context.move_to((width - extents.width) / 2, (height + extents.height) / 2)
        context.show_text("Time is Up!")


def main(codec, width, height, start, rate, file):
    width, height, start, rate = int(width), int(height), int(start), float(rate)
    encoder = subprocess.Popen(
        ["ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pix_fmt", "bgr0", "-s", f"{width}x{height}",
         "-r", str(rate), "-i", "-", "-threads", "1" if width * height <= 640 * 480 else "2", "-sws_flags", "area+accurate_rnd+full_chroma_inp",
         *ENCODERS[codec].split(), file], stdin=subprocess.PIPE)
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24, width, height)
    context = cairo.Context(surface)
    for i in range(math.ceil(start * rate), -1, -1):
        draw(context, width, height, int(min(3600, i / rate)), i == 0)
        surface.flush()
        encoder.stdin.write(surface.get_data())
    encoder.stdin.close()
    return encoder.wait()


sys.exit(main(*sys.argv[1:]))
