// The one object through which a conversion talks to the user.
//
// It moves the progress display, notices when the user cancels, and sends lines to the results
// list. This class has the host's display and list; a command line overrides SetProgress and
// ReportResult to have its own.
//
// Title, file name, caption and locations are shared by all objects, and they outlive them: the
// host side may ask for them at any time while the plug-in is loaded.

#pragma once

#include "ResId.h"
#include "STR.h"
#include "TVAList.h"

namespace tabulorix {

class PluginOutput {
public:
    // What the host is told about a message of the analysis; the host gives it its meaning.
    static constexpr int kResultKindWarning = 4;
    // The locations of a message that belongs to no place in a score.
    static constexpr int kNoLocation = -2;

    explicit PluginOutput(STR fileName = {}, STR title = {});
    PluginOutput(const PluginOutput&) = delete;
    PluginOutput& operator=(const PluginOutput&) = delete;

    // The order of these operations is part of the interface; new ones come after them.

    // Sent with every message.
    virtual void SetTitle(const STR& title);
    // Sent with every message. Messages reported for the file before may be reported again.
    virtual void SetFileName(const STR& fileName);
    // Sent with every message. At a new place, messages may be reported again.
    virtual void SetLocation1(int location);
    virtual void SetLocation2(int location);
    // Kept only.
    virtual void SetLocation3(short location);
    virtual STR GetFileName() const;
    virtual int GetLocation1() const;
    virtual int GetLocation2() const;
    virtual short GetLocation3() const;
    virtual STR GetTitle() const;

    // A new caption at the percentage of before. Raises ConverterCancelled as the next one does.
    virtual void SetProgressText(const STR& caption);
    // `percent` is 0 to 100; the caption may be empty. Raises ConverterCancelled when the user has
    // cancelled, and when there is no display to ask.
    virtual void SetProgress(int percent, const STR& caption);

    // Sends `text` to the results list, or the message's own string when the text is empty. Each
    // message id is sent once for a file and place, unless `repeat` is not 0.
    virtual void ReportResult(const ResId& message, int kind, const STR& text, int repeat);

    // 1 from the start on.
    virtual int GetReportedFlag() const;
    // 0; nothing sets it.
    virtual int GetFurtherValue() const;

    virtual ~PluginOutput();

private:
    void SetLocation(int& stored, int location) noexcept;
    void ShowProgress(int throwLine) const;

    int m_MessageCount = 0;
    int m_ReportedFlag = 1;
    int m_Percent = 0;
    TVAList<int> m_ReportedIds;
};

// The plug-in's only one, made at its first use.
PluginOutput& GetPluginOutput();
// Nothing happens when there is none.
void DestroyPluginOutput() noexcept;

}  // namespace tabulorix
