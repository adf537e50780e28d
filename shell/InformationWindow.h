#pragma once

#include <string>
#include <string_view>

#include "platform/Controls.h"
#include "platform/Window.h"
#include "platform/targets.h"

/// The base class of windows with read-only text. Escape closes them.
class InformationWindow : public Window {
  public:
    bool Event_KeyDown(const std::string& key) override;

  protected:
    /// Adds a text view that is resized with the window.
    StyledTextField& AddTextView(const std::string& name, Int32 left, Int32 top, Int32 width, Int32 height,
                                 Int32 tabIndex);

    /// Sets the font of a control to Geneva on platforms that use it.
    template <class C>
    void ChooseFont(const std::string& name) {
        if constexpr (targets::kGenevaFont) Find<C>(name).TextFont("Geneva");
    }
};

/// Converts marked-up text to style runs. No run is empty, and adjacent runs differ in style. The text starts
/// in size `baseSize`, neither bold nor italic. A tag extends from "<" to the next ">", is removed from the
/// text and affects all text after it. <b> and </b> switch bold on and off; <i> and </i> switch italic.
/// <font size="14"> sets the size to the first quoted number, or to 0 if there is none. </font> restores the
/// size before the latest <font>, or sets 0 if there was none. Other tags have no effect. Tags don't nest.
/// If no ">" follows a "<", the "<" and the rest are plain text.
StyledText ParseMarkup(std::string_view markup, Int32 baseSize);
