#pragma once

#include <functional>

#include "platform/FolderItem.h"

enum MouseCursors { StandardPointer, FingerPointer };

/// The program as the toolkit sees it.
class Application {
  public:
    virtual ~Application() = default;

    /// Called once, just before the event loop starts.
    virtual void Event_Open() {}

    /// Sets whether the program quits when its last window closes; false by default.
    void AutoQuit(bool on);
    /// Sets the pointer's shape over all existing windows, except over menus and controls that set their own.
    void MouseCursor(MouseCursors cursor);

    Property<Int32> MajorVersion = 0;
    Property<Int32> MinorVersion = 0;
    Property<Int32> BugVersion = 0;
    Property<Int32> StageCode = 0;  ///< 0 development, 1 alpha, 2 beta, 3 final
    Property<Int32> NonReleaseVersion = 0;

    /// Returns the running executable, with symbolic links resolved.
    static Ref<FolderItem> ExecutableFile();
    /// Returns the registered application object; nil before RuntimeRegisterAppObject.
    static Application* Registered();
};

/// Starts the toolkit. `program` is argv[0]; `name` and `desktopId` identify the program to the desktop. The
/// windows' icon is the theme's icon `desktopId`, or else the built-in one (packaging/icons). Beep plays the
/// file `alertSound` if the desktop's sound theme has no alert sound.
void RuntimeInit(char* program, const std::string& name, const std::string& desktopId,
                 const Ref<FolderItem>& alertSound);
/// Runs the start-up code and ignores its result. An exception from it ends the program with status 1.
void RunFrameworkInitialization(const std::function<int()>& startUp);
/// Makes `application` the program's application object. The toolkit owns it.
void RuntimeRegisterAppObject(std::unique_ptr<Application> application);
/// Runs the event loop until Quit. Returns at once if the start-up code has thrown.
void RuntimeRun();
/// Destroys the windows, the application object, the host and the toolkit. Returns the exit status.
int RuntimeExit();

/// Waits until each worker has ended at its next yield, then ends the event loop. Sets the exit status.
void Quit(int status);
