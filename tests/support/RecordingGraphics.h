#pragma once

#include <string>
#include <vector>

#include "platform/Graphics.h"
#include "platform/Shapes.h"

/// A surface that draws nothing and writes down what it was asked for. Its font is six times as wide as its size.
class RecordingGraphics final : public Graphics {
  public:
    RecordingGraphics(Int32 width, Int32 height) : width_(width), height_(height) {}

    template <class Shape>
    struct Placed {
        Int32 x, y;
        Shape shape;
    };
    struct Text {
        Int32 x, y;
        std::string text;
        Int32 size;
        Color color;
    };

    /// One word for each call, in order; for a row of lines there is one.
    std::vector<std::string> order;
    std::vector<Placed<OvalShape>> ovals;
    std::vector<Placed<ArcShape>> arcs;
    std::vector<Placed<CurveShape>> lines;
    std::vector<Text> texts;
    std::vector<Ref<Picture>> pictures;
    Color background;

    Int32 Width() const override { return width_; }
    Int32 Height() const override { return height_; }

    void FillRect(Int32 x, Int32 y, Int32 width, Int32 height) override {
        order.push_back(x == 0 && y == 0 && width == width_ && height == height_ ? "all" : "rectangle");
        background = ForeColor();
    }
    void DrawRect(Int32, Int32, Int32, Int32) override { order.emplace_back("outline"); }
    void DrawLine(Int32, Int32, Int32, Int32) override { order.emplace_back("line"); }
    void ClearRect(Int32, Int32, Int32, Int32) override { order.emplace_back("clear"); }
    void DrawObject(const OvalShape& oval, Int32 x, Int32 y) override {
        order.push_back(oval.Border() > 0 ? "ring" : "disc");
        ovals.push_back({x, y, oval});
    }
    void DrawObject(const ArcShape& arc, Int32 x, Int32 y) override {
        order.push_back("wedge");
        arcs.push_back({x, y, arc});
    }
    void DrawObject(const CurveShape& line, Int32 x, Int32 y) override {
        if (order.back() != "marks") order.push_back("marks");
        lines.push_back({x, y, line});
    }
    void DrawPicture(const Ref<Picture>& picture, Int32 x, Int32 y, Int32, Int32, Int32, Int32, Int32, Int32) override {
        order.push_back(x == 10 && y == 10 ? "icon" : "picture");
        pictures.push_back(picture);
    }
    double StringWidth(const std::string&) override { return 6 * TextSize() + 0.9; }
    Int32 StringHeight(const std::string&, Int32 wrapWidth) override {
        return wrapWidth > StringWidth("") ? 2 * TextSize() : 4 * TextSize();
    }
    Int32 TextAscent() override { return TextSize(); }
    void DrawString(const std::string& text, Int32 x, Int32 y, Int32, bool) override {
        order.push_back("text");
        texts.push_back({x, y, text, TextSize(), ForeColor()});
    }

  private:
    Int32 width_;
    Int32 height_;
};
