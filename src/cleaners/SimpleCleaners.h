#pragma once

class CleanerContext;

// The cleaners of Internet Explorer, iCab, OmniWeb, Opera and QuickTime, of the
// plug-in folders and of the user's custom processes.
class SimpleCleaners {
public:
    explicit SimpleCleaners(CleanerContext& context)
        : mContext(context)
    {
    }

    void QuicktimeCache();
    void PluginsCache();
    void CustomFiles();
    void IE51();
    void iCab411();
    void iCab30();
    void iCab28();
    void OmniWeb41();
    void OmniWeb51();
    void OmniWeb57();
    void Opera50();
    void Opera60();
    void Opera70();
    void Opera80();
    void Opera90();
    void Opera100();
    void Opera110();
    void Opera170();

private:
    CleanerContext& mContext;
};
