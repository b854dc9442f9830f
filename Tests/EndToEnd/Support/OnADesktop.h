#pragma once

#include "Support/RunningGateway.h"

#include <gtest/gtest.h>

#include <iostream>

namespace wendlow::testing {

/// The application in front of a practice gateway, worked by what a person sees of it.
class OnADesktop : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isReady()); }
    /// What was not found may not be there because the application is not.
    void TearDown() override {
        if (HasFailure() && application)
            std::cerr << "the application " << application->howItIs().toStdString() << '\n';
    }

    bool says(const QString& name) const { return application->findNamed(name).has_value(); }
    bool is(const char* role, const QString& name) const {
        return application->find(QString::fromUtf8(role), name).has_value();
    }
    void press(const QString& name) const {
        const auto thing = application->findNamed(name);
        ASSERT_TRUE(thing && thing->act(QStringLiteral("Press"))) << name.toStdString();
    }
    /// In the window of this title, the roles of what can be reached by key or has something to
    /// tell, and has no name. A scroll bar tells by its value.
    QStringList nameless(const QString& title) const {
        using namespace Qt::StringLiterals;
        static const QStringList telling{
            u"push button"_s, u"toggle button"_s, u"check box"_s,  u"radio button"_s, u"page tab"_s,
            u"list item"_s,   u"menu item"_s,     u"heading"_s,    u"label"_s,        u"text"_s,
            u"alert"_s,       u"list"_s,          u"popup menu"_s, u"dialog"_s};
        QStringList roles;
        const auto window = application->window(title);
        for (const Accessible& thing : window->all([](const Accessible& each) {
                 return each.isShowing() && each.name().trimmed().isEmpty();
             }))
            if ((thing.isFocusable() && thing.role() != u"scroll bar"_s) ||
                telling.contains(thing.role()))
                roles.append(thing.role());
        return roles;
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
