#include "Veilshot/Platform/GlobalHotKey.h"

#include <QGuiApplication>
#include <cstdio>

/// Another program that wants the system-wide shortcut. It says whether it has it, and every press.
int main(int argumentCount, char** arguments) {
    const QGuiApplication application(argumentCount, arguments);
    const auto say = [](const char* word) {
        std::puts(word);
        std::fflush(stdout);
    };
    QObject context;
    std::unique_ptr<Veilshot::GlobalHotKey> held;
    Veilshot::GlobalHotKey::create(
        &context, [&] { say("pressed"); },
        [&](std::unique_ptr<Veilshot::GlobalHotKey> hotKey) {
            held = std::move(hotKey);
            say(held ? "registered" : "failed");
        });
    return QGuiApplication::exec();
}
