// The engine itself: how it is started, and what all pages share.
#pragma once

#include <QWebEngineProfile>

#include <memory>

class FolderGuard;

// Keeps nothing on disk, asks nobody, and loads what the guard allows. The first call starts the
// engine.
std::unique_ptr<QWebEngineProfile> MakeEngineProfile(FolderGuard&, int ansiCodePage);
