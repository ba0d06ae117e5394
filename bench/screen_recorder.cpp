// Starts a program and says after how long a part of the screen shows what is waited for.
//
//   screen_recorder LEFT,TOP,WIDTH,HEIGHT PROGRAM [ARGUMENT...]
//
// Prints the program's process id, reads commands from its standard input, and answers each with
// one line: seconds since the start, or "-" when the limit is over. At the end of the input it ends
// the program by SIGTERM.
//
//   change LIMIT        the first change, but of a caret
//   rest QUIET LIMIT    the last change before QUIET seconds without any
//   learn FILE          writes the picture (P6); answers the time
//   match FILE LIMIT    the picture is that of the file
//   run COMMAND         a command for the shell; times count from its start; answers 0
//
// The X server reports changes (DAMAGE), and only then the picture is fetched, through shared
// memory: so looking costs the program little.
#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/Xdamage.h>

#include <poll.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {
using Clock = std::chrono::steady_clock;

constexpr int maxCaretWidth = 4, maxCaretPixels = 100;

struct Part {
    int left = 0, top = 0;
    unsigned width = 0, height = 0;
};

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

class Screen {
  public:
    explicit Screen(const Part& region) : region_(region), display_(XOpenDisplay(nullptr)) {
        if (!display_) throw std::runtime_error("no display");
        const int screen = DefaultScreen(display_);
        int errorBase = 0;
        if (!XDamageQueryExtension(display_, &damageBase_, &errorBase))
            throw std::runtime_error("the X server has no DAMAGE extension");
        image_ = XShmCreateImage(display_, DefaultVisual(display_, screen),
                                 static_cast<unsigned>(DefaultDepth(display_, screen)), ZPixmap,
                                 nullptr, &memory_, region.width, region.height);
        if (!image_ || image_->bits_per_pixel != 32)
            throw std::runtime_error("the screen has not 32 bits a pixel");
        const std::size_t bytes = static_cast<std::size_t>(image_->bytes_per_line) * region.height;
        memory_.shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
        memory_.shmaddr = image_->data = static_cast<char*>(shmat(memory_.shmid, nullptr, 0));
        XShmAttach(display_, &memory_);
        XSync(display_, False);
        shmctl(memory_.shmid, IPC_RMID, nullptr); // gone with the two that have it now
        damage_ = XDamageCreate(display_, DefaultRootWindow(display_), XDamageReportBoundingBox);
        XFlush(display_);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { XCloseDisplay(display_); }

    // Whether something changed in the region within this time.
    bool WaitForChange(double seconds) {
        const auto start = Clock::now();
        for (;;) {
            if (TakeChanges()) return true;
            const double left = seconds - SecondsSince(start);
            if (left <= 0) return false;
            pollfd connection{ConnectionNumber(display_), POLLIN, 0};
            poll(&connection, 1, static_cast<int>(left * 1000) + 1);
        }
    }

    void Fetch() {
        XShmGetImage(display_, DefaultRootWindow(display_), image_, region_.left, region_.top,
                     AllPlanes);
    }
    // What was fetched: red, green and blue of each pixel.
    std::string Picture() const {
        std::string picture;
        for (unsigned y = 0; y < region_.height; ++y)
            for (unsigned x = 0; x < region_.width; ++x)
                picture.append({Pixel(x, y)[2], Pixel(x, y)[1], Pixel(x, y)[0]});
        return picture;
    }
    // Up to a caret, which is there half of the time.
    bool Shows(std::string_view picture) const {
        const char* wanted = picture.data();
        int others = 0;
        for (unsigned y = 0; y < region_.height; ++y)
            for (unsigned x = 0; x < region_.width; ++x, wanted += 3) {
                const char* pixel = Pixel(x, y);
                others += pixel[2] != wanted[0] || pixel[1] != wanted[1] || pixel[0] != wanted[2];
                if (others > maxCaretPixels) return false;
            }
        return true;
    }

  private:
    bool TakeChanges() {
        bool changed = false;
        while (XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type != damageBase_ + XDamageNotify) continue;
            const auto& area = reinterpret_cast<XDamageNotifyEvent&>(event).area;
            const auto right = region_.left + static_cast<int>(region_.width),
                       bottom = region_.top + static_cast<int>(region_.height);
            changed |= area.width > maxCaretWidth && area.x < right &&
                       area.x + area.width > region_.left && area.y < bottom &&
                       area.y + area.height > region_.top;
            XDamageSubtract(display_, damage_, None, None);
        }
        return changed;
    }

    // Blue, green, red and nothing, as a server on a little-endian machine has them.
    const char* Pixel(unsigned x, unsigned y) const {
        return image_->data + std::size_t{y} * image_->bytes_per_line + std::size_t{4} * x;
    }

    Part region_;
    Display* display_;
    XImage* image_ = nullptr;
    XShmSegmentInfo memory_{};
    Damage damage_ = 0;
    int damageBase_ = 0;
};

std::string Header(const Part& region) {
    return "P6\n" + std::to_string(region.width) + " " + std::to_string(region.height) + "\n255\n";
}

class Recorder {
  public:
    explicit Recorder(const Part& region) : region_(region), screen_(region) {}

    void Start(char** command) {
        Rest(0.2, 10); // what an earlier program left may still be going
        start_ = Clock::now();
        program_ = fork();
        if (program_ == 0) {
            execvp(command[0], command);
            _exit(127);
        }
        std::cout << program_ << std::endl;
    }

    void Obey(const std::string& line) {
        std::istringstream words(line);
        std::string command, file;
        double quiet = 0, limit = 0;
        words >> command;
        std::optional<double> time;
        if (command == "change") {
            words >> limit;
            time = Change(limit);
        } else if (command == "rest") {
            words >> quiet >> limit;
            time = Rest(quiet, limit);
        } else if (command == "learn") {
            words >> file;
            screen_.Fetch();
            std::ofstream(file, std::ios::binary) << Header(region_) << screen_.Picture();
            time = SecondsSince(start_);
        } else if (command == "match") {
            words >> file >> limit;
            time = Match(file, limit);
        } else if (command == "run") {
            start_ = Clock::now();
            time = 0;
            if (std::system((line.substr(4) + " &").c_str()) != 0) time.reset();
        }
        std::cout << (time ? std::to_string(*time) : "-") << std::endl;
    }

    void End() {
        kill(program_, SIGTERM);
        for (int i = 0; i < 100 && waitpid(program_, nullptr, WNOHANG) == 0; ++i)
            usleep(100'000);
        kill(program_, SIGKILL); // does nothing when it has ended
    }

  private:
    std::optional<double> Change(double limit) {
        if (screen_.WaitForChange(limit)) return SecondsSince(start_);
        return std::nullopt;
    }

    std::optional<double> Rest(double quiet, double limit) {
        double last = SecondsSince(start_);
        while (screen_.WaitForChange(quiet)) {
            last = SecondsSince(start_);
            if (last > limit) return std::nullopt;
        }
        return last;
    }

    std::optional<double> Match(const std::string& file, double limit) {
        std::ifstream stream(file, std::ios::binary);
        const std::string wanted{std::istreambuf_iterator<char>(stream), {}};
        const std::size_t header = Header(region_).size();
        if (wanted.size() != header + std::size_t{3} * region_.width * region_.height)
            return std::nullopt;
        do {
            screen_.Fetch();
            const double time = SecondsSince(start_);
            if (screen_.Shows(std::string_view(wanted).substr(header))) return time;
        } while (SecondsSince(start_) < limit && screen_.WaitForChange(limit));
        return std::nullopt;
    }

    Part region_;
    Screen screen_;
    pid_t program_ = 0;
    Clock::time_point start_ = Clock::now();
};
} // namespace

int main(int argc, char** argv) try {
    Part region;
    if (argc < 3 || std::sscanf(argv[1], "%d,%d,%u,%u", &region.left, &region.top, &region.width,
                                &region.height) != 4) {
        std::cerr << "screen_recorder LEFT,TOP,WIDTH,HEIGHT PROGRAM [ARGUMENT...]\n";
        return EXIT_FAILURE;
    }
    Recorder recorder(region);
    recorder.Start(argv + 2);
    for (std::string line; std::getline(std::cin, line);)
        recorder.Obey(line);
    recorder.End();
    return EXIT_SUCCESS;
} catch (const std::exception& error) {
    std::cerr << "screen_recorder: " << error.what() << "\n";
    return EXIT_FAILURE;
}
