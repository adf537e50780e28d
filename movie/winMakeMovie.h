#pragma once

#include <atomic>
#include <string>

#include "platform/EditableMovie.h"
#include "platform/FolderItem.h"
#include "platform/Ref.h"
#include "platform/Values.h"
#include "shell/Dialog.h"

/// The Create Movie dialog and the job that renders a count-down into a movie. The controls hold the settings
/// until Start reads them. While the job runs on the worker `thr`, the main thread accesses no field but
/// Cancel. The worker releases the last reference to the movie, which saves and closes it.
class winMakeMovie final : public Dialog {
  public:
    static winMakeMovie& Instance() { return ImplicitInstance<winMakeMovie>("winMakeMovie.winMakeMovie"); }

    /// The clock's size relative to the smaller side of the frame.
    double Scale = 0.9;
    bool OpenMovie = false;
    /// The file of the movie; nil if no movie is being made.
    Ref<FolderItem> f;

    // The dialog (movie/winMakeMovie.cpp).
    bool eStart_KeyDown(const std::string& key);
    void eStart_TextChange() { CalculateSize(); }
    void eSizeX_TextChange() { CalculateSize(); }
    void eSizeY_TextChange() { CalculateSize(); }
    void eFrameRate_TextChange() { CalculateSize(); }
    void eScale_TextChange() { CalculateSize(); }
    void Event_Open() override;
    void Event_Close() override;
    /// Shows how large the movie would be without compression.
    void CalculateSize();

    // The job (movie/winMakeMovie_job.cpp).
    /// Asks for the file and the compression, and starts the worker. Returns silently if a step fails.
    void bStart_Action();
    /// Cancels the running job; closes the dialog if no job is running.
    void bCancel_Action();
    void thr_Run();
    /// Re-enables the controls after a job.
    void Timer1_Action();

  private:
    void Layout() override;
    void CreateControls() override { _CreateControls0(); }
    void _CreateControls0();

    /// Returns the number in the named edit field.
    double Number(const char* field) const;
    void ReadSettings();
    bool CreateMovieFile();
    bool ChooseCompression();
    void DiscardMovie();
    void RenderFrames();

    Ref<QTVideoTrack> t;
    Ref<EditableMovie> m;
    std::atomic<bool> Cancel = false;
    Int32 SizeX = 0, SizeY = 0;
    double FrameRate = 0;
    Int32 StartTime = 0;
    bool Compress = false;
};
