// wendlow-test-client: waits for a line on standard input, asks the gateway for its health once,
// and prints the sentence that came back.

#include "XPCClient.h"

#include <QCoreApplication>

#include <iostream>
#include <string>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    wendlow::XPCClient client;
    std::cout << "ready" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    const auto answer =
        QCoro::waitFor(client.send(wendlow::ReadRequest(wendlow::ReadCase::Health{})));
    if (const auto* failure = std::get_if<wendlow::AnswerCase::Failure>(&answer))
        std::cout << failure->message << std::endl;
    return 0;
}
