#pragma once

#include <cstdint>
#include <span>

#include "platform/Ref.h"
#include "platform/Values.h"

class Graphics;

/// An off-screen image of opaque pixels, with a mask beside it that may give it transparent parts. Its size
/// is in logical pixels, each of which may be several of the image's own. Any thread, but one at a time.
class Picture {
  public:
    struct Pixels;

    explicit Picture(std::unique_ptr<Pixels> pixels);
    ~Picture();

    Int32 Width() const;
    Int32 Height() const;

    /// The surface that draws on this picture; the same object at each call. It must not outlive the picture.
    Ref<::Graphics> Graphics();

    /// The mask, a grey picture of the same size and scale: black is opaque, white transparent. With
    /// `create`, a picture without one gets a mask that is all black; otherwise nil stands for none.
    Ref<Picture> Mask(bool create);

    /// The pixels as 0xFFRRGGBB, row by row without padding. They change as the picture is drawn on.
    std::span<const std::uint32_t> Bits() const;

    /// For the toolkit's own use.
    Pixels& pixels() { return *pixels_; }

  private:
    std::unique_ptr<Pixels> pixels_;
    Ref<::Graphics> graphics_;
    Ref<Picture> mask_;
};

/// A new white picture; nil when the size is not above 0 or there is no memory for it. `depth` is always 32.
/// A logical pixel is `scale` of the picture's pixels wide and high.
Ref<Picture> NewPicture(Int32 width, Int32 height, Int32 depth, double scale = 1);
