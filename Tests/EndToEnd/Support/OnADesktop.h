#pragma once

#include "Support/RunningGateway.h"

#include <gtest/gtest.h>

namespace wendlow::testing {

/// The application in front of a practice gateway, worked by what a person sees of it.
class OnADesktop : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isReady()); }

    bool says(const QString& name) const { return application->findNamed(name).has_value(); }
    bool is(const char* role, const QString& name) const {
        return application->find(QString::fromUtf8(role), name).has_value();
    }
    void press(const QString& name) const {
        const auto thing = application->findNamed(name);
        ASSERT_TRUE(thing && thing->act(QStringLiteral("Press"))) << name.toStdString();
    }
    void write(const QString& text) const {
        QStringList keys;
        for (const QChar letter : text)
            keys.append(letter == u' ' ? QStringLiteral("space") : QString(letter));
        desktop.press(keys);
    }

    Desktop desktop;
    RunningGateway gateway{desktop};
    std::optional<RunningApplication> application;
};

} // namespace wendlow::testing
