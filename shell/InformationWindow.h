#pragma once

#include <string>
#include <string_view>

#include "platform/Controls.h"
#include "platform/Window.h"
#include "platform/targets.h"

/// A window whose text is only read. Escape closes it.
class InformationWindow : public Window {
  public:
    bool Event_KeyDown(const std::string& key) override;

  protected:
    /// Adds a text view that is resized with the window.
    StyledTextField& AddTextView(const std::string& name, Int32 left, Int32 top, Int32 width, Int32 height,
                                 Int32 tabIndex);

    /// Gives a control another font on a platform that has it.
    template <class C>
    void ChooseFont(const std::string& name) {
        if constexpr (targets::kGenevaFont) Find<C>(name).TextFont("Geneva");
    }
};

/// Turns text with tags in it into text with style runs. `baseSize` is the text size at the beginning, where
/// nothing is bold or italic; no run is empty, and neighbours differ in style. A tag is all from a "<" to the
/// next ">". It is removed from the text and applies from there to the end: <b> and </b> switch bold, <i> and
/// </i> italic. <font size="14"> sets the size to the first quoted number, 0 if there is none, and
/// </font> to the size before the latest <font>, or 0. Other tags have no effect. Tags don't nest. A "<"
/// without a ">" after it is text, and so is all that follows it.
StyledText ParseMarkup(std::string_view markup, Int32 baseSize);
