// The engine's profile, shared by all pages.
#pragma once

#include <QWebEngineProfile>

#include <memory>

class FolderGuard;

// Off the record and offline; loads only what the guard allows. The first call starts the engine.
std::unique_ptr<QWebEngineProfile> CreateEngineProfile(FolderGuard&, int ansiCodePage);
