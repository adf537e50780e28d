#pragma once

#include <functional>

#include "platform/FolderItem.h"

enum MouseCursors { StandardPointer, FingerPointer };

/// The program as the toolkit sees it.
class Application {
  public:
    virtual ~Application() = default;

    /// Delivered once, when the event loop begins.
    virtual void Event_Open() {}

    /// Whether the program ends when its last window closes.
    void AutoQuit(bool on);
    /// The pointer's shape over the windows' own area; controls and menus with a shape of their own keep it.
    void MouseCursor(MouseCursors cursor);

    Property<Int32> MajorVersion = 0;
    Property<Int32> MinorVersion = 0;
    Property<Int32> BugVersion = 0;
    Property<Int32> StageCode = 0;  ///< 0 development, 1 alpha, 2 beta, 3 final
    Property<Int32> NonReleaseVersion = 0;

    /// The file that is running, with all links resolved.
    static Ref<FolderItem> ExecutableFile();
    /// The registered application object; nil before there is one.
    static Application* Registered();
};

/// Starts the toolkit. `program` is the first of the process's arguments. By `name` and `desktopId` the desktop
/// knows the program; the windows' icon is the one named `desktopId`, in the desktop's theme or else among the
/// program's own (packaging/icons). Where the desktop has no sound of its own, Beep plays the file `alertSound`.
void RuntimeInit(char* program, const std::string& name, const std::string& desktopId,
                 const Ref<FolderItem>& alertSound);
/// Runs the start-up code, whose result doesn't matter. What it throws ends the program with status 1.
void RunFrameworkInitialization(const std::function<int()>& startUp);
/// Makes `application` the program's one application object, owned by the toolkit.
void RuntimeRegisterAppObject(std::unique_ptr<Application> application);
/// Runs the event loop until Quit; not at all when the start-up code has thrown.
void RuntimeRun();
/// Releases the windows, the application object, the host and the toolkit. Gives the exit status.
int RuntimeExit();

/// Ends all workers, each at its next yield, then the event loop, with a status.
void Quit(int status);
