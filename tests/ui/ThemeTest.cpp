// The palettes of the two themes: colours that must differ, and texts that must be readable.
#include "ui/Theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include <cmath>

namespace tabulon {
namespace {

double luminance(const QColor& color) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double low = std::min(luminance(a), luminance(b)) + 0.05;
    return (std::max(luminance(a), luminance(b)) + 0.05) / low;
}

class ThemeTest : public testing::TestWithParam<ColorScheme> {
protected:
    void SetUp() override {
        style_ = QApplication::style()->name();
        theme_ = std::make_unique<Theme>(GetParam());
    }
    void TearDown() override {
        theme_.reset();
        QApplication::setPalette(QPalette());
        QApplication::setStyle(QStyleFactory::create(style_));
    }
    QColor color(QPalette::ColorGroup group, QPalette::ColorRole role) {
        return QApplication::palette().color(group, role);
    }

private:
    QString style_;
    std::unique_ptr<Theme> theme_;
};

TEST_P(ThemeTest, WhatCannotBeUsedIsFainterThanWhatCan) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const QColor ground = color(QPalette::Active, QPalette::Window);
        EXPECT_LT(contrast(color(QPalette::Disabled, role), ground) * 2,
                  contrast(color(QPalette::Active, role), ground))
            << role;
    }
}

TEST_P(ThemeTest, AnEmptyBoxIsSeen) {
    const QCheckBox box("text");
    QStyleOptionButton option;
    option.initFrom(&box);
    option.rect = QRect(0, 0, 13, 13);
    option.state.setFlag(QStyle::State_Off);
    const QColor ground = color(QPalette::Active, QPalette::Window);
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
        QImage image(13, 13, QImage::Format_RGB32);
        image.fill(ground);
        QPainter painter(&image);
        QApplication::style()->drawPrimitive(element, &option, &painter, &box);
        painter.end();
        double best = 0;
        for (int x = 0; x < 3; ++x) // the frame's left side
            best = std::max(best, contrast(image.pixelColor(x, 6), ground));
        EXPECT_GT(best, 1.5) << element;
    }
}

TEST_P(ThemeTest, TextsAreReadableOnTheirGroundsWhetherTheWindowIsInFrontOrNot) {
    using Pair = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        for (const auto& [text, ground] : {Pair{QPalette::Text, QPalette::Base},
                                           {QPalette::WindowText, QPalette::Window},
                                           {QPalette::ButtonText, QPalette::Button},
                                           {QPalette::ToolTipText, QPalette::ToolTipBase}}) {
            EXPECT_GT(contrast(color(group, text), color(group, ground)), 7) << group << " " << text;
        }
    EXPECT_GT(contrast(color(QPalette::Active, QPalette::HighlightedText),
                       color(QPalette::Active, QPalette::Highlight)),
              4);
    EXPECT_GT(contrast(color(QPalette::Inactive, QPalette::HighlightedText),
                       color(QPalette::Inactive, QPalette::Highlight)),
              7);
}

INSTANTIATE_TEST_SUITE_P(BothSchemes, ThemeTest, testing::Values(ColorScheme::Light, ColorScheme::Dark),
                         [](const auto& scheme) {
                             return scheme.param == ColorScheme::Dark ? "Dark" : "Light";
                         });

} // namespace
} // namespace tabulon
