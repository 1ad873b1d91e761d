// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

/// Translates every text to "context|text" while it lives, so that a text shows whether and where
/// it was looked up.
class TaggingTranslator : public QTranslator {
public:
    TaggingTranslator() { QCoreApplication::installTranslator(this); }
    ~TaggingTranslator() override { QCoreApplication::removeTranslator(this); }
    Q_DISABLE_COPY_MOVE(TaggingTranslator)

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* text, const char*,
                                    int) const override {
        return QLatin1String(context) + u'|' + QLatin1String(text);
    }
};
