// Our own stand-in for the system's browser control: pages of plain lines after the same
// interfaces, as far as the HTML view uses them. It remembers every call, counts its objects, and
// fails the call that it is told to.
#pragma once

#include "platform/windows/base/win32.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

struct IDropTarget;
struct IUnknown;

struct StandInPage {
    std::wstring text; // each line is one of the page; a break is one character
    std::wstring title;
    std::wstring charset = L"utf-8";
    bool hasBody = true;
    bool followsStandards = true;
    std::wstring letters = L"rgb(0, 0, 0)", paper = L"transparent", rootPaper = L"transparent";
};

struct StandInMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

class StandInBrowser;

// What a test sets up, does and looks at.
class StandIn {
  public:
    static constexpr int LineHeight = 20, CellWidth = 8;                 // CSS pixels
    static constexpr int Margin = 6, Border = 2, Edge = Margin + Border; // of the body

    StandIn() = default;
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    HRESULT Make(IUnknown** control); // the factory

    std::map<std::wstring, StandInPage> pages;                    // by address
    std::function<StandInPage(const std::wstring& url)> readPage; // for those not among them
    int ownMargin = 0;      // CSS pixels, of the first paragraph
    int pushedByLayout = 0; // how much lower the text gets with each new size of letters or window
    int failingCall = 0;    // counted from 1; 0: none
    bool hasFailed = false;

    // The user and the engine. `Follow` answers whether the engine was allowed to go there.
    bool IsLoading() const;
    void FinishLoading();
    bool Follow(const std::wstring& url, bool inFrame = false, bool sendsForm = false);
    bool FollowToNewWindow(const std::wstring& url);
    bool Download();
    bool Fail(); // to load the page; whether the engine's own page of errors was refused
    void Quit();
    void AskForMenu(POINT);
    IDropTarget* DropTarget(); // the host's, counted; null for none
    HWND Inner() const;

    std::vector<std::string> calls; // in order, with their arguments
    int callCount = 0;              // also of what is not worth remembering
    int living = 0;                 // objects
    int leftOnSite = -1;            // references to the host's site after the control's last one
    std::vector<StandInMessage> messages; // that the inner window took
    long downloadFlags = 0;
    DWORD hostFlags = 0;
    std::map<DWORD, DWORD> policies; // of the actions asked for when activated
    bool silent = false, takesDrops = false;
    int zoom = 0;
    std::wstring backColor, letterColor;
    MSG lastKey = {};

    // For the stand-in's objects: remembers, fails when it is this call's turn, else does it.
    HRESULT Answer(const std::string& call, const std::function<void()>& work);
    HRESULT Count(const std::function<void()>& work); // the same, not remembered
    bool Fails();

    StandInBrowser* browser = nullptr; // while it lives
    int ViewHeight() const;            // CSS pixels
    int windowHeight = 0;
    int textTop = 0; // how much lower than at first the text begins
};

std::string Narrow(std::wstring_view);
