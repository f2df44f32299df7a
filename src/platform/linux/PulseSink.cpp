#include <algorithm>
#include <climits>
#include <utility>

#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>
#include <pulse/stream.h>
#include <pulse/timeval.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "platform/Fault.h"
#include "platform/linux/SpeechSink.h"

#include "AtomicFile.h"

namespace kestrava::platform {

namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

constexpr int kBufferedMs = 400;  ///< lies at the server: what a busy machine may be late without a gap
constexpr const char* kApplication = "Kestrava";

template <auto Release>
struct Releaser {
  template <class Thing>
  void operator()(Thing* thing) const {
    Release(thing);
  }
};
using Mainloop = std::unique_ptr<pa_mainloop, Releaser<pa_mainloop_free>>;
using Context = std::unique_ptr<pa_context, Releaser<pa_context_unref>>;
using Stream = std::unique_ptr<pa_stream, Releaser<pa_stream_unref>>;
using Operation = std::unique_ptr<pa_operation, Releaser<pa_operation_unref>>;

/// Empties the counter that Wake has raised.
void OnWake(pa_mainloop_api*, pa_io_event*, int fd, pa_io_event_flags_t, void*) {
  eventfd_t ignored = 0;
  eventfd_read(fd, &ignored);
}

/// The library's plain mainloop, turned by the thread that calls Wait. Its stages are asked for after each turn, so
/// there are no callbacks. The blocking interface of the library would wait for a server that hangs for ever.
class PulseSink : public SpeechSink {
 public:
  explicit PulseSink(PulseOptions options)
      : options_(std::move(options)), wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), loop_(pa_mainloop_new()) {
    if (!wake_.IsOpen() || !loop_) throw Fault::DeviceError();
    pa_mainloop_api* api = pa_mainloop_get_api(loop_.get());
    api->io_new(api, wake_.Get(), PA_IO_EVENT_INPUT, OnWake, nullptr);
  }
  ~PulseSink() override { PulseSink::Close(); }
  PulseSink(const PulseSink&) = delete;
  PulseSink& operator=(const PulseSink&) = delete;

  Stage Now() const override { return stage_; }
  std::string WhyLost() const override { return whyLost_; }
  void Open(int rateHz) override;
  std::size_t Write(std::span<const std::int16_t> samples) override;
  void Finish() override;
  void Close() override;
  void Wait() override;
  void Wake() override { eventfd_write(wake_.Get(), 1); }

 private:
  void Advance();
  void OpenStream();
  void Lose(const std::string& why);
  void LoseServer() { Lose("no sound server (" + std::string(pa_strerror(pa_context_errno(context_.get()))) + ")"); }
  void NoteProgress() { patientUntil_ = std::chrono::steady_clock::now() + options_.patience; }
  bool IsPatient() const { return stage_ == Stage::kClosed || stage_ == Stage::kLost; }
  int WaitMicroseconds() const;

  PulseOptions options_;
  Descriptor wake_;
  Mainloop loop_;
  Context context_;
  Stream stream_;
  Operation drain_;
  Stage stage_ = Stage::kClosed;
  std::string whyLost_;
  SteadyTime patientUntil_;
  int rateHz_ = 0;
  bool wroteAny_ = false;
};

void PulseSink::Open(int rateHz) {
  Close();
  rateHz_ = rateHz;
  stage_ = Stage::kOpening;
  NoteProgress();
  context_.reset(pa_context_new(pa_mainloop_get_api(loop_.get()), kApplication));
  if (!context_) return Lose("no sound server");
  const char* server = options_.server.empty() ? nullptr : options_.server.c_str();
  // A server of our own would outlive us, and starting one would block.
  if (pa_context_connect(context_.get(), server, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) LoseServer();
}

void PulseSink::OpenStream() {
  const pa_sample_spec format{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(rateHz_), 1};
  stream_.reset(pa_stream_new(context_.get(), "Speech", &format, nullptr));
  if (!stream_) return LoseServer();
  constexpr auto kAsUsual = static_cast<std::uint32_t>(-1);
  const auto target = static_cast<std::uint32_t>(pa_usec_to_bytes(kBufferedMs * PA_USEC_PER_MSEC, &format));
  const pa_buffer_attr buffer{kAsUsual, target, kAsUsual, kAsUsual, kAsUsual};
  if (pa_stream_connect_playback(stream_.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr, nullptr) < 0) {
    LoseServer();
  }
}

std::size_t PulseSink::Write(std::span<const std::int16_t> samples) {
  if (stage_ != Stage::kOpen) return 0;
  const std::size_t room = pa_stream_writable_size(stream_.get());
  if (room == static_cast<std::size_t>(-1)) {
    LoseServer();
    return 0;
  }
  const std::size_t count = std::min(samples.size(), room / sizeof(samples[0]));
  if (count == 0) return 0;
  if (pa_stream_write(stream_.get(), samples.data(), count * sizeof(samples[0]), nullptr, 0, PA_SEEK_RELATIVE) < 0) {
    LoseServer();
    return 0;
  }
  wroteAny_ = true;
  NoteProgress();
  return count;
}

void PulseSink::Finish() {
  if (stage_ != Stage::kOpen) return;
  if (!wroteAny_) return Close();
  drain_.reset(pa_stream_drain(stream_.get(), nullptr, nullptr));
  if (!drain_) return LoseServer();
  stage_ = Stage::kFinishing;
  NoteProgress();
}

/// The server throws away what it has of a stream that is gone.
void PulseSink::Close() {
  drain_.reset();
  if (stream_) pa_stream_disconnect(stream_.get());
  stream_.reset();
  if (context_) pa_context_disconnect(context_.get());
  context_.reset();
  wroteAny_ = false;
  stage_ = Stage::kClosed;
}

void PulseSink::Lose(const std::string& why) {
  Close();
  whyLost_ = why;
  stage_ = Stage::kLost;
}

int PulseSink::WaitMicroseconds() const {
  using std::chrono::microseconds;
  if (IsPatient()) return -1;
  const auto left = std::chrono::duration_cast<microseconds>(patientUntil_ - std::chrono::steady_clock::now());
  return static_cast<int>(std::clamp<microseconds::rep>(left.count(), 0, INT_MAX));
}

void PulseSink::Wait() {
  if (pa_mainloop_prepare(loop_.get(), WaitMicroseconds()) >= 0 && pa_mainloop_poll(loop_.get()) >= 0) {
    pa_mainloop_dispatch(loop_.get());
  }
  Advance();
}

void PulseSink::Advance() {
  if (IsPatient()) return;
  const pa_context_state_t server = pa_context_get_state(context_.get());
  if (!PA_CONTEXT_IS_GOOD(server)) return LoseServer();
  if (server == PA_CONTEXT_READY && !stream_) OpenStream();
  if (IsPatient()) return;
  if (stream_) {
    const pa_stream_state_t stream = pa_stream_get_state(stream_.get());
    if (!PA_STREAM_IS_GOOD(stream)) return LoseServer();
    if (stream == PA_STREAM_READY && stage_ == Stage::kOpening) {
      stage_ = Stage::kOpen;
      NoteProgress();
    }
  }
  if (drain_ && pa_operation_get_state(drain_.get()) != PA_OPERATION_RUNNING) return Close();
  if (std::chrono::steady_clock::now() >= patientUntil_) Lose("the sound server does not answer");
}

}  // namespace

std::unique_ptr<SpeechSink> MakePulseSink(const PulseOptions& options) {
  return std::make_unique<PulseSink>(options);
}

}  // namespace kestrava::platform
