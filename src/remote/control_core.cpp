#include "remote/control_core.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>
#include <thread>

#include "playout/play_engine.h"
#include "project/page_manager.h"

namespace orv {

namespace {

// How long a command waits for the step under way before it gives up: the
// longest transition at its slowest speed is well inside it.
constexpr auto STEP_WAIT = std::chrono::seconds(30);

UstReply Ok(const char* what) {
    return {REPLY_OK, std::string(what) + " OK", {}};
}

UstReply Failed(int code, std::string text) {
    return {code, std::move(text), {}};
}

QString JsonText(const QJsonObject& object) {
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

}  // namespace

const char* RemoteStateName(int state) {
    static const char* const NAMES[] = {"idle", "load", "in",   "on air", "blink",
                                        "live", "out",  "gone", "end",    "typing"};
    return state >= 0 && state <= PLAY_TYPING ? NAMES[state] : "?";
}

CControlCore::CControlCore(CPlayEngine& engine, QString projectName,
                           std::vector<CPageManager*> pages, UstPlayList* list)
    : m_engine(engine),
      m_strProject(std::move(projectName)),
      m_pages(std::move(pages)),
      m_pList(list) {}

void CControlCore::SetPages(QString projectName, std::vector<CPageManager*> pages) {
    std::lock_guard lock(m_mutex);
    std::lock_guard pagesLock(m_pagesMutex);
    m_strProject = std::move(projectName);
    m_pages = std::move(pages);
    m_pLoaded = nullptr;
}

QString CControlCore::ProjectName() {
    std::lock_guard lock(m_pagesMutex);
    return m_strProject;
}

int CControlCore::PageCount() {
    std::lock_guard lock(m_pagesMutex);
    return static_cast<int>(m_pages.size());
}

void CControlCore::ForEachPage(
    const std::function<void(int number, const CPageManager& page)>& visit) {
    std::lock_guard lock(m_mutex);
    for (size_t i = 0; i < m_pages.size(); ++i)
        visit(static_cast<int>(i) + 1, *m_pages[i]);
}

UstReply CControlCore::Execute(const UstLineCommand& c) {
    FieldValues data;
    std::string error;
    if (c.bHasData && !ParseFieldJson(c.strData, data, error))
        return Failed(REPLY_ILLEGAL, "CG FAILED " + error);
    switch (c.nVerb) {
        case VERB_ADD:
            return Take(c.strTarget, c.bHasData ? &data : nullptr, c.bPlay);
        case VERB_PLAY:
            return Play();
        case VERB_NEXT:
            return Next();
        case VERB_STOP:
            return Stop();
        case VERB_UPDATE:
            return Update(data);
        case VERB_CG_CLEAR:
            return ClearLoaded();
        case VERB_CLEAR:
            return Erase();
        case VERB_LIST_PLAY:
            return ListPlay();
        case VERB_LIST_STOP:
            return ListStop();
        case VERB_INFO:
            return Info();
        case VERB_VERSION:
            return {REPLY_DATA, "VERSION OK", {VERSION}};
        default:
            return Failed(REPLY_ERROR, "ERROR not a command");
    }
}

CPageManager* CControlCore::FindPage(const std::string& target, UstReply& error) const {
    const QString text = QString::fromStdString(target);
    const qsizetype slash = text.lastIndexOf('/');
    const QString project = slash < 0 ? QString() : text.left(slash);
    // Pages are found among the open project's only: nothing is opened by
    // the name given, and a name that climbs out of the projects folder is
    // refused outright.
    if (project.contains(QStringLiteral("..")) || project.contains('\\') ||
        project.startsWith('/') || project.contains('/')) {
        error = Failed(REPLY_ILLEGAL, "CG FAILED a project is named by its folder alone");
        return nullptr;
    }
    if (slash >= 0 && project != m_strProject) {
        error = Failed(REPLY_NOT_FOUND,
                       "CG FAILED project '" + project.toStdString() + "' is not the one open");
        return nullptr;
    }
    bool ok = false;
    const int number = text.mid(slash + 1).toInt(&ok);
    if (!ok || number < 1 || number > static_cast<int>(m_pages.size())) {
        error = Failed(REPLY_NOT_FOUND, "CG FAILED no page " + text.mid(slash + 1).toStdString() +
                                            " (1 to " + std::to_string(m_pages.size()) + ")");
        return nullptr;
    }
    return m_pages[static_cast<size_t>(number - 1)];
}

bool CControlCore::SetEnginePage(CPageManager* page) {
    const auto until = std::chrono::steady_clock::now() + STEP_WAIT;
    while (!m_engine.SetPage(page)) {
        if (std::chrono::steady_clock::now() > until) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

int CControlCore::PageNumber(const CPageManager* page) const {
    std::lock_guard lock(m_pagesMutex);
    for (size_t i = 0; i < m_pages.size(); ++i)
        if (m_pages[i] == page) return static_cast<int>(i) + 1;
    return 0;
}

UstReply CControlCore::Take(const std::string& target, const FieldValues* data, bool play) {
    std::lock_guard lock(m_mutex);
    UstReply error;
    CPageManager* page = FindPage(target, error);
    if (!page) return error;
    if (data && page->m_data.SetValues(*data)) TellData(page);
    m_pLoaded = page;
    if (!SetEnginePage(page)) return Failed(REPLY_FAILED, "CG FAILED the engine is busy");
    if (play) m_engine.Key(PLAYKEY_RUN);
    return Ok("ADD");
}

UstReply CControlCore::Play() {
    std::lock_guard lock(m_mutex);
    if (!m_pLoaded) return Failed(REPLY_FAILED, "CG FAILED no page added");
    if (m_engine.Page() != m_pLoaded && !SetEnginePage(m_pLoaded))
        return Failed(REPLY_FAILED, "CG FAILED the engine is busy");
    m_engine.Key(PLAYKEY_RUN);
    return Ok("PLAY");
}

UstReply CControlCore::Next() {
    std::lock_guard lock(m_mutex);
    m_engine.Key(PLAYKEY_RUN);
    return Ok("NEXT");
}

// The page's own out effect when it has one waiting; a page without one
// simply leaves the air.
UstReply CControlCore::Stop() {
    std::lock_guard lock(m_mutex);
    if (m_engine.IsSinglePage() && m_engine.State() == PLAY_OUT)
        m_engine.Key(PLAYKEY_RUN);
    else
        m_engine.Key(PLAYKEY_ERASE);
    return Ok("STOP");
}

UstReply CControlCore::Update(const FieldValues& data) {
    std::lock_guard lock(m_mutex);
    CPageManager* page = m_engine.PageOnAir() ? m_engine.PageOnAir() : m_pLoaded;
    if (!page) return Failed(REPLY_FAILED, "CG FAILED no page to update");
    return ApplyData(page, data, false);
}

UstReply CControlCore::SetPageData(int number, const FieldValues& data, bool replace) {
    std::lock_guard lock(m_mutex);
    if (number < 1 || number > static_cast<int>(m_pages.size()))
        return Failed(REPLY_NOT_FOUND, "FAILED no page " + std::to_string(number));
    return ApplyData(m_pages[static_cast<size_t>(number - 1)], data, replace);
}

UstReply CControlCore::ApplyData(CPageManager* page, const FieldValues& data, bool replace) {
    const bool changed = replace ? page->m_data.SetValues(data) : page->m_data.MergeValues(data);
    if (!changed) return Ok("UPDATE");
    TellData(page);
    if (m_engine.PageOnAir() != page) return Ok("UPDATE");
    if (page->m_data.UpdateMode() == DATA_UPDATE_RECT) {
        m_engine.RefreshOnAir();
    } else {
        page->m_data.HoldRow();
        m_engine.StopPlay();
        if (!SetEnginePage(page)) return Failed(REPLY_FAILED, "CG FAILED the engine is busy");
        m_engine.Key(PLAYKEY_RUN);
    }
    return Ok("UPDATE");
}

UstReply CControlCore::Timers(const UstTimerControl& control) {
    m_engine.TimerControl(control);
    return Ok("TIMERS");
}

UstReply CControlCore::ClearLoaded() {
    std::lock_guard lock(m_mutex);
    m_engine.Key(PLAYKEY_ERASE);
    m_pLoaded = nullptr;
    return Ok("CLEAR");
}

UstReply CControlCore::Erase() {
    std::lock_guard lock(m_mutex);
    m_engine.Key(PLAYKEY_ERASE);
    return Ok("CLEAR");
}

// The list from where it stands, as the Run key plays it with no single
// page in hand.
UstReply CControlCore::ListPlay() {
    std::lock_guard lock(m_mutex);
    if (!m_pList || m_pList->Count() == 0) return Failed(REPLY_FAILED, "PLAY FAILED no play list");
    if (m_engine.IsSinglePage()) m_engine.StopPlay();
    m_engine.Key(PLAYKEY_RUN);
    return Ok("PLAY");
}

UstReply CControlCore::ListStop() {
    std::lock_guard lock(m_mutex);
    m_engine.Key(PLAYKEY_STOP);
    return Ok("STOP");
}

UstReply CControlCore::Info() {
    std::lock_guard lock(m_mutex);
    UstReply reply{REPLY_INFO, "INFO OK", {}};
    reply.lines.push_back("project " + m_strProject.toStdString());
    reply.lines.push_back("pages " + std::to_string(m_pages.size()));
    reply.lines.push_back(std::string("state ") + RemoteStateName(m_engine.State()));
    reply.lines.push_back("loaded " + std::to_string(PageNumber(m_pLoaded)));
    reply.lines.push_back("on air " + std::to_string(PageNumber(m_engine.PageOnAir())));
    return reply;
}

int CControlCore::LoadedNumber() {
    std::lock_guard lock(m_mutex);
    return PageNumber(m_pLoaded);
}

int CControlCore::OnAirNumber() const {
    return PageNumber(m_engine.PageOnAir());
}

int CControlCore::StateNow() const {
    return m_engine.State();
}

void CControlCore::SetEventSink(RemoteEventSink sink) {
    std::lock_guard lock(m_sinkMutex);
    m_sink = std::move(sink);
}

void CControlCore::Tell(const std::string& json) {
    std::lock_guard lock(m_sinkMutex);
    if (m_sink) m_sink(json);
}

// Only what the engine holds in atomics is read here: this runs on the
// engine's thread, maybe while a command waits for it under m_mutex.
void CControlCore::PlayStateChanged(int state) {
    QJsonObject event{{QStringLiteral("event"), QStringLiteral("state")},
                      {QStringLiteral("state"), QString::fromLatin1(RemoteStateName(state))},
                      {QStringLiteral("page"), PageNumber(m_engine.Page())},
                      {QStringLiteral("onAir"), PageNumber(m_engine.PageOnAir())}};
    Tell(JsonText(event).toStdString());
}

void CControlCore::TellData(const CPageManager* page) {
    QJsonObject data;
    for (const auto& [name, value] : page->m_data.Values())
        data.insert(name, value);
    QJsonObject event{{QStringLiteral("event"), QStringLiteral("data")},
                      {QStringLiteral("page"), PageNumber(page)},
                      {QStringLiteral("data"), data}};
    Tell(JsonText(event).toStdString());
}

}  // namespace orv
