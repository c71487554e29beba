#pragma once

#include "update/DocumentFetcher.h"

#include <QObject>

#include <chrono>

namespace korvane {

class Log;

/// Fetches documents over the toolkit's sockets. Nothing is kept between two documents: no connection, no
/// cookie, no cache, no password.
class QtDocumentFetcher : public DocumentFetcher {
public:
    /// Whether only servers that prove by a certificate who they are may be asked. Where they may
    /// not, plain ones may be too; no server leads from the first kind to the second in any case.
    enum class Schemes { https, httpToo };

    static constexpr std::chrono::milliseconds patience { 5000 };

    /// @param limit  for the whole of one document, from the question to the last byte
    QtDocumentFetcher(Schemes schemes, Log& log, std::chrono::milliseconds limit = patience);
    ~QtDocumentFetcher() override;

    void fetch(std::string_view address, Answer answer) override;

private:
    Schemes m_schemes;
    Log& m_log;
    std::chrono::milliseconds m_limit;
    QObject m_downloads; // the parent of all that are under way
};

} // namespace korvane
