// How a later start of the program reaches the running one: by a socket beside the lock file.
#pragma once

#include "platform/instance.h"
#include "platform/posix/file_descriptor.h"

#include <optional>
#include <string>

// Where the lock's file system knows no sockets (sticks, some shares), the socket is in the folder
// of the session. Only processes of the same user are listened to and asked, by what the system
// says of them.
class StartRequestListener {
  public:
    StartRequestListener() = default;
    StartRequestListener(const StartRequestListener&) = delete;
    StartRequestListener& operator=(const StartRequestListener&) = delete;
    ~StartRequestListener(); // removes the socket

    // For the holder of the lock: what lies in the socket's place is of one that was killed.
    bool Listen(const std::string& lockPath);
    int Number() const { return socket_.Number(); } // readable when somebody asks

    // The next request, answered; none when it was refused, had been given up or is none of ours.
    std::optional<StartRequest> Accept(bool take);

  private:
    FileDescriptor socket_;
    std::string path_;
};

// Asks the holder of the lock.
HandOver AskRunningInstance(const std::string& lockPath, const StartRequest&, int milliseconds);
