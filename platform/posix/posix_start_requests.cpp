#include "platform/posix/posix_start_requests.h"

#include "common/utf.h"
#include "platform/posix/posix_paths.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

// A request is one packet: the greeting, the book's path and the activation, with a NUL after each
// of them. The answer is one byte; a refusal is the end of the connection.

namespace {

constexpr std::string_view greeting = "norvaset start 1";
constexpr char yes = 'y';
constexpr std::size_t maxRequest = 16 * 1024; // bytes; the longest path of the system has 4,096
constexpr std::size_t maxActivation = 1024;
constexpr int requestTime = 200; // milliseconds; a request is sent in the moment of the connection
constexpr int backlog = 64;

// Beside the lock file, and in the session's folder by the number of the lock file.
std::vector<std::string> SocketPaths(const std::string& lockPath) {
    std::vector<std::string> paths = {lockPath.substr(0, lockPath.rfind('.')) + ".socket"};
    struct stat lock {};
    const char* session = std::getenv("XDG_RUNTIME_DIR");
    if (session && *session == '/' && stat(lockPath.c_str(), &lock) == 0)
        paths.push_back(session + std::string("/norvaset-") + std::to_string(lock.st_dev) + '-' +
                        std::to_string(lock.st_ino) + ".socket");
    return paths;
}

// An address has room for some hundred bytes; a longer path goes by way of its open folder.
class SocketAddress {
  public:
    explicit SocketAddress(const std::string& path) {
        address_.sun_family = AF_UNIX;
        std::string shown = path;
        if (shown.size() >= sizeof address_.sun_path) {
            folder_ =
                FileDescriptor(open(FolderOf(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
            shown = "/proc/self/fd/" + std::to_string(folder_.Number()) + '/' + NameOf(path);
        }
        isValid_ = shown.size() < sizeof address_.sun_path;
        if (isValid_) std::memcpy(address_.sun_path, shown.c_str(), shown.size() + 1);
    }
    bool IsValid() const { return isValid_; }
    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&address_); }
    static socklen_t Size() { return sizeof(sockaddr_un); }

  private:
    FileDescriptor folder_;
    sockaddr_un address_{};
    bool isValid_ = false;
};

FileDescriptor NewSocket() {
    return FileDescriptor(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool IsOfThisUser(const FileDescriptor& connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(connection.Number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == geteuid();
}

bool WaitUntilReadable(const FileDescriptor& connection, int milliseconds) {
    pollfd entry = {connection.Number(), POLLIN, 0};
    int ready = 0;
    do { // no signal of ours comes often enough to lengthen this much
        ready = poll(&entry, 1, milliseconds);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

bool RemoveSocket(const std::string& path) {
    struct stat old {};
    if (lstat(path.c_str(), &old) != 0) return errno == ENOENT;
    return S_ISSOCK(old.st_mode) && unlink(path.c_str()) == 0;
}

std::string Packet(const StartRequest& request) {
    // Not as a path of the system: one that cannot be one is to be named in the first's message.
    const std::string book = Utf16ToUtf8(request.book);
    const std::string activation(request.activation.begin(), request.activation.end()); // ASCII
    std::string packet(greeting);
    for (const std::string& part : {book, activation})
        (packet += '\0') += part;
    return packet += '\0';
}

// The tokens of the desktops are printable ASCII.
bool IsToken(std::string_view text) {
    return text.size() <= maxActivation &&
           std::ranges::all_of(text, [](char byte) { return byte > ' ' && byte <= '~'; });
}

std::optional<StartRequest> Parsed(std::string_view packet) {
    std::vector<std::string_view> parts;
    for (std::size_t end; (end = packet.find('\0')) != packet.npos; packet.remove_prefix(end + 1))
        parts.push_back(packet.substr(0, end));
    if (parts.size() < 2 || parts[0] != greeting) return std::nullopt;
    const bool hasBook = !parts[1].empty();
    if (hasBook && parts[1].front() != '/') return std::nullopt;
    StartRequest request;
    if (hasBook) request.book = PathFromNative(parts[1]);
    if (parts.size() > 2 && IsToken(parts[2]))
        request.activation.assign(parts[2].begin(), parts[2].end());
    return request;
}

std::optional<StartRequest> Receive(const FileDescriptor& connection) {
    std::string packet(maxRequest, '\0');
    if (!WaitUntilReadable(connection, requestTime)) return std::nullopt;
    const ssize_t size = recv(connection.Number(), packet.data(), packet.size(), MSG_TRUNC);
    if (size <= 0 || static_cast<std::size_t>(size) > packet.size()) return std::nullopt;
    return Parsed(packet.substr(0, static_cast<std::size_t>(size)));
}

HandOver AskAt(const std::string& path, const std::string& packet, int milliseconds) {
    const SocketAddress address(path);
    const FileDescriptor connection = NewSocket();
    if (!address.IsValid() || !connection.IsOpen() ||
        connect(connection.Number(), address.Get(), SocketAddress::Size()) != 0 ||
        !IsOfThisUser(connection) ||
        send(connection.Number(), packet.data(), packet.size(), MSG_NOSIGNAL) < 0)
        return HandOver::NobodyThere;
    if (!WaitUntilReadable(connection, milliseconds)) return HandOver::NoAnswer;
    char answer = 0;
    const bool taken = recv(connection.Number(), &answer, 1, 0) == 1 && answer == yes;
    return taken ? HandOver::Taken : HandOver::Refused;
}

} // namespace

StartRequestListener::~StartRequestListener() {
    if (socket_.IsOpen()) RemoveSocket(path_);
}

bool StartRequestListener::Listen(const std::string& lockPath) {
    for (const std::string& path : SocketPaths(lockPath)) {
        const SocketAddress address(path);
        FileDescriptor socket = NewSocket();
        if (!address.IsValid() || !socket.IsOpen() || !RemoveSocket(path)) continue;
        if (bind(socket.Number(), address.Get(), SocketAddress::Size()) != 0) continue;
        chmod(path.c_str(), S_IRUSR | S_IWUSR);
        if (listen(socket.Number(), backlog) != 0) {
            RemoveSocket(path);
            continue;
        }
        socket_ = std::move(socket);
        path_ = path;
        return true;
    }
    return false;
}

std::optional<StartRequest> StartRequestListener::Accept(bool take) {
    const FileDescriptor connection(
        accept4(socket_.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection.IsOpen() || !IsOfThisUser(connection)) return std::nullopt;
    std::optional<StartRequest> request = Receive(connection);
    if (!take || !request) return std::nullopt;
    // Fails when the other has given up meanwhile, and has said so to its user.
    if (send(connection.Number(), &yes, 1, MSG_NOSIGNAL) != 1) return std::nullopt;
    return request;
}

HandOver AskRunningInstance(const std::string& lockPath, const StartRequest& request,
                            int milliseconds) {
    const std::string packet = Packet(request);
    for (const std::string& path : SocketPaths(lockPath)) {
        const HandOver answer = AskAt(path, packet, milliseconds);
        if (answer != HandOver::NobodyThere) return answer;
    }
    return HandOver::NobodyThere;
}
