// A toolkit without a screen that keeps what it was asked to show, in order, and fails where it is
// told to. A modal display lasts as long as its script runs.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/runtime_error.h"
#include "tests/doubles/recording_message_boxes.h"
#include "ui/control.h"
#include "ui/form.h"
#include "ui/toolkit.h"

namespace quill {

class RecordingToolkit final : public ui::Toolkit {
 public:
  struct Synced {
    Text control;
    ui::Changes changes;
  };

  RecordingMessageBoxes messages;
  // What peers were told, pictures read, pointers set and hooks, for example "ReadPicture".
  std::vector<std::string> journal;
  std::vector<Synced> synced;
  // Full paths of the pictures that were read.
  std::vector<Text> pictures_read;
  // Runs at the start of every operation that the journal names; throws to make it fail.
  std::function<void(const std::string& operation)> before;
  // The modal display. It ends with its form's, or when the script is over.
  std::function<void()> play;
  std::vector<std::vector<Text>> file_answers;
  std::vector<ui::FileDialogRequest> file_requests;
  ui::Metrics metrics;

  RecordingToolkit() = default;
  ~RecordingToolkit() override { RunDeferred(); }

  void ShowMessage(TextView caption, TextView text) override {
    messages.ShowMessage(caption, text);
  }
  std::unique_ptr<ui::Peer> MakePeer(ui::Control& control) override {
    return std::make_unique<RecordingPeer>(*this, control);
  }
  [[nodiscard]] ui::Metrics GetMetrics() const override { return metrics; }
  ui::PicturePtr ReadPicture(TextView path) override {
    Begin("ReadPicture");
    pictures_read.emplace_back(path);
    return std::make_shared<PathPicture>(path);
  }
  ui::PicturePtr MakePicture(int, int, std::span<const std::uint32_t>) override {
    Begin("MakePicture");
    return std::make_shared<PathPicture>(u"");
  }
  std::vector<Text> ShowFileDialog(ui::Form&, const ui::FileDialogRequest& request) override {
    Begin("ShowFileDialog");
    file_requests.push_back(request);
    if (file_answers.empty()) return {};
    std::vector<Text> answer = std::move(file_answers.front());
    file_answers.erase(file_answers.begin());
    return answer;
  }
  void SetScreenPointer(ui::Pointer pointer) override {
    Begin(pointer == ui::Pointer::kBusy ? "ScreenPointer busy" : "ScreenPointer default");
  }
  void RunModal(ui::Form&) override {
    if (const auto script = std::exchange(play, nullptr)) script();
  }
  void EndModal(ui::Form&) override { journal.emplace_back("EndModal"); }
  void Defer(std::function<void()> task) override { deferred_.push_back(std::move(task)); }
  void HookTabBackground(ui::TabStrip&, ui::PictureBox&) override { Begin("HookTabBackground"); }
  void UnhookTabBackground(ui::TabStrip&) override { Begin("UnhookTabBackground"); }

  void RunDeferred() {
    while (!deferred_.empty()) {
      const auto tasks = std::exchange(deferred_, {});
      for (const auto& task : tasks) task();
    }
  }

 private:
  class PathPicture final : public ui::Picture {
   public:
    explicit PathPicture(TextView path) : path_(path) {}
    [[nodiscard]] TextView path() const noexcept override { return path_; }

   private:
    Text path_;
  };

  class RecordingPeer final : public ui::Peer {
   public:
    RecordingPeer(RecordingToolkit& toolkit, ui::Control& control)
        : toolkit_(toolkit), control_(control) {}
    void Sync(ui::Changes changes) override {
      toolkit_.Begin("Sync");
      toolkit_.synced.push_back({control_.name(), changes});
    }

   private:
    RecordingToolkit& toolkit_;
    ui::Control& control_;
  };

  void Begin(const char* operation) {
    journal.emplace_back(operation);
    if (before) before(operation);
  }

  std::vector<std::function<void()>> deferred_;
};

}  // namespace quill
