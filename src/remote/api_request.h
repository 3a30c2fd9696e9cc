#pragma once
// The HTTP face's requests as typed calls: method, path and JSON body in,
// one call of the command core out, or the status and message that refuse
// it. Pure, so that any bytes a client sends can be fuzzed through it.

#include <string>

#include "objects/text_fields.h"
#include "playout/play_timers.h"

namespace orv {

enum EApiCall : int {
    API_STATUS = 0,  // GET /api/status
    API_PAGES,       // GET /api/pages
    API_TAKE,        // POST /api/take {"page": n, "data": {...}, "play": true}
    API_NEXT,        // POST /api/next
    API_STOP,        // POST /api/stop
    API_ERASE,       // POST /api/erase
    API_PAGE_DATA,   // PUT /api/pages/{n}/data {...}
    API_TIMERS,      // POST /api/timers/{pause|resume|restart|set} [{"seconds": n}]
    API_EVENTS       // GET /api/events, a WebSocket
};

struct UstApiCall {
    int nCall = API_STATUS;
    int nPage = 0;  // counted from 1
    bool bHasData = false;
    FieldValues data;
    bool bPlay = true;
    UstTimerControl timer;
};

struct UstApiError {
    int nStatus = 400;
    std::string strMessage;
};

bool ParseApiRequest(const std::string& method, const std::string& path, const std::string& body,
                     UstApiCall& out, UstApiError& error);

}  // namespace orv
