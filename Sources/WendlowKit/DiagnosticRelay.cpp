#include "DiagnosticRelay.h"

#include <utility>

#include <boost/describe/enum_to_string.hpp>

#include <QCoreApplication>

namespace wendlow {

namespace {

/// The answer is dropped, whatever it is. What it runs on is held until then.
QCoro::Task<> tell(std::shared_ptr<const DiagnosticRelay::Ask> ask, DiagnosticRequest request) {
    co_await (*ask)(std::move(request));
}

} // namespace

DiagnosticRelay::DiagnosticRelay(DiagnosticSource source, std::shared_ptr<WendlowClient> client)
    : DiagnosticRelay(source, [client = std::move(client)](DiagnosticRequest request) {
          return client->send(std::move(request));
      }) {}

DiagnosticRelay::DiagnosticRelay(DiagnosticSource source, Ask ask)
    : m_source(source), m_ask(std::make_shared<const Ask>(std::move(ask))) {}

void DiagnosticRelay::note(std::string line) const {
    DiagnosticRequest request =
        DiagnosticCase::Log{boost::describe::enum_to_string(m_source, ""), std::move(line)};
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [ask = m_ask, request = std::move(request)]() mutable {
            // Nobody waits for a note.
            tell(std::move(ask), std::move(request));
        },
        Qt::QueuedConnection);
}

} // namespace wendlow
