#ifndef DIALOGS_WIDGETS_QUIT_REQUEST_WIN32_H_
#define DIALOGS_WIDGETS_QUIT_REQUEST_WIN32_H_

struct HHOOK__;

namespace imptable {

/// While it lives, a request to quit that the host gets ends the open dialogs of this thread, the
/// innermost first, as if each were cancelled. The destructor passes the request on to the host's
/// own message loop.
class QuitRequest {
 public:
  QuitRequest();
  QuitRequest(const QuitRequest&) = delete;
  QuitRequest& operator=(const QuitRequest&) = delete;
  ~QuitRequest();

 private:
  HHOOK__* hook_;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_QUIT_REQUEST_WIN32_H_
