#pragma once

class RecordingHost;

/// The program brought up without a desktop, for a benchmark to drive: file types, application object, timer window.
class Stage {
  public:
    Stage(int& argc, char** argv);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    RecordingHost& host;

  private:
    static RecordingHost& BringUp(int& argc, char** argv);
};
