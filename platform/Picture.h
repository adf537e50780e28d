#pragma once

#include <cstdint>
#include <span>

#include "platform/Ref.h"
#include "platform/Values.h"

class Graphics;

/// An off-screen image of opaque pixels with an optional mask for transparent parts. Its size is in logical
/// pixels, but it may have several pixels for each. Any thread may use it, but one at a time.
class Picture {
  public:
    struct Pixels;

    explicit Picture(std::unique_ptr<Pixels> pixels);
    ~Picture();

    Int32 Width() const;
    Int32 Height() const;

    /// Returns the picture's surface, the same object at each call. It must not outlive the picture.
    Ref<::Graphics> Graphics();

    /// Returns the mask, a grey picture of the same size and scale: black is opaque, white transparent. If
    /// there is no mask, creates an all-black one if `create` is set, and returns nil otherwise.
    Ref<Picture> Mask(bool create);

    /// Returns a view of the pixels as 0xFFRRGGBB, row by row without padding. Later drawing changes them.
    std::span<const std::uint32_t> Bits() const;

    /// Only for use within platform/.
    Pixels& pixels() { return *pixels_; }

  private:
    std::unique_ptr<Pixels> pixels_;
    Ref<::Graphics> graphics_;
    Ref<Picture> mask_;
};

/// Creates a white picture with `scale` pixels per logical pixel along each axis. Returns nil if width or
/// height is 0 or less, or if memory runs out. `depth` makes no difference: pixels always have 32 bits.
Ref<Picture> NewPicture(Int32 width, Int32 height, Int32 depth, double scale = 1);
