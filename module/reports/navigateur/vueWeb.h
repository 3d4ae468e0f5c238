#pragma once

#include <functional>

class QUrl;
class QWidget;

/// A view of one local page, without scripts and without a profile on disk. Null when the application was not prepared
/// for it (Qt::AA_ShareOpenGLContexts).
/// @param echec called later when the page cannot be shown after all
using creerVueWeb_t = QWidget* (*)(QWidget* parent, const QUrl& page, const std::function<void()>& echec);

/// The name that the library exports it under.
inline constexpr char nomCreerVueWeb[] = "velaCreerVueWeb";
