#pragma once
// The one command core behind every face of the control server. Each
// command becomes the same calls the operator's keys make on the play
// engine, on the engine's terms: a command that comes while a step runs
// waits its turn as a key would. Calls come from the server's own thread,
// never from the user interface's.

#include <QString>

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "objects/text_fields.h"
#include "remote/field_json.h"
#include "remote/line_protocol.h"

namespace orv {

class CPageManager;
class CPlayEngine;
struct UstPlayList;
struct UstTimerControl;

// Where the core tells its events, as one JSON object each: a state of the
// play machine, or new data on a page. Called from the engine's thread and
// the server's; it must return at once.
using RemoteEventSink = std::function<void(const std::string& json)>;

class CControlCore {
public:
    // pages: the open project's pages in order; list: the operator's play
    // list, or null.
    CControlCore(CPlayEngine& engine, QString projectName, std::vector<CPageManager*> pages,
                 UstPlayList* list);

    UstReply Execute(const UstLineCommand& command);

    // Another set of pages, as when the editor enters or leaves play mode:
    // returns once no command uses the old ones.
    void SetPages(QString projectName, std::vector<CPageManager*> pages);

    // The typed calls, one per command. Pages are counted from 1.
    UstReply Take(const std::string& target, const FieldValues* data, bool play);
    UstReply Play();
    UstReply Next();
    UstReply Stop();
    UstReply Update(const FieldValues& data);
    UstReply ClearLoaded();
    UstReply Erase();
    UstReply ListPlay();
    UstReply ListStop();
    UstReply Info();
    // New values for page `number`, replacing (or merged into) its data;
    // the air follows when it is the page on air.
    UstReply SetPageData(int number, const FieldValues& data, bool replace);
    UstReply Timers(const UstTimerControl& control);

    // What the status answers, from any thread.
    QString ProjectName();
    int PageCount();
    // Each page with its number, while no command can change the set.
    void ForEachPage(const std::function<void(int number, const CPageManager& page)>& visit);
    int PageNumber(const CPageManager* page) const;
    int LoadedNumber();
    int OnAirNumber() const;
    int StateNow() const;

    // Events go to the sink while one is set; null stops them.
    void SetEventSink(RemoteEventSink sink);
    // The window's side of the engine hands every state on to here.
    void PlayStateChanged(int state);

    // A page of "project/page" or "page" in the open project, or a reply
    // that says why not.
    CPageManager* FindPage(const std::string& target, UstReply& error) const;

    static constexpr const char* VERSION = "1.62";

private:
    // SetPage until the engine takes it; false when a step never ends.
    bool SetEnginePage(CPageManager* page);
    // New data on a page, under m_mutex: the air follows by the page's choice.
    UstReply ApplyData(CPageManager* page, const FieldValues& data, bool replace);
    void Tell(const std::string& json);
    void TellData(const CPageManager* page);

    CPlayEngine& m_engine;
    // Written under both mutexes; the engine's thread reads them under
    // m_pagesMutex alone, as it may tell a state while a command waits.
    mutable std::mutex m_pagesMutex;
    QString m_strProject;
    std::vector<CPageManager*> m_pages;
    UstPlayList* m_pList = nullptr;
    std::mutex m_mutex;  // one command at a time, whichever face it came by
    CPageManager* m_pLoaded = nullptr;
    // Apart from m_mutex: the engine's thread tells states while a command
    // holding m_mutex waits for the engine.
    std::mutex m_sinkMutex;
    RemoteEventSink m_sink;
};

// The name the protocol gives a state of the play machine.
const char* RemoteStateName(int state);

}  // namespace orv
