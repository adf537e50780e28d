#pragma once

#include "platform/Menu.h"
#include "platform/Ref.h"

/// The program's only menu bar. A chosen item calls the handler that is registered under the item's name.
class MenuBar1 final : public MenuBar {
  public:
    /// Returns the menu bar. It is built at the first call and kept until the process ends.
    static Ref<MenuBar1> Instance();

    MenuBar1();

  private:
    void Untitled0();
    void Untitled1();
    void Untitled2();
    void Untitled3();
    void Untitled4();
};
