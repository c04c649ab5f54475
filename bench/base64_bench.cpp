// Every coder gets the same characters; ours has them as 16-bit units.
#include "bench/base64_bench.h"

#include <benchmark/benchmark.h>

#include <string>

#include "bench/base64_coders.h"
#include "bench/measurements.h"
#include "support/base64.h"

namespace quill::bench {
namespace {

std::string Sample(std::size_t size) {
  constexpr std::string_view kWords = "The night server of the northern valley, open to all. ";
  std::string text;
  while (text.size() < size) text += kWords;
  text.resize(size);
  return text;
}

std::string EncodedSample(std::size_t size) {
  const std::string plain = Sample(size);
  return ToUtf8(EncodeBase64({reinterpret_cast<const std::uint8_t*>(plain.data()), plain.size()}));
}

void RegisterOther(const char* direction, std::size_t size, const Base64Coder& coder,
                   std::size_t (*work)(std::string_view, char*), std::string input) {
  Measure(Name({direction, std::to_string(size), coder.name}),
          [work, input = std::move(input)](benchmark::State& state) {
            std::string out(2 * input.size() + 16, '\0');
            for (auto _ : state) {
              benchmark::DoNotOptimize(work(input, out.data()));
              benchmark::ClobberMemory();
            }
          });
}

void RegisterOurs(std::size_t size) {
  Measure(Name({"encode", std::to_string(size), kOurs}),
          [input = FromUtf8(Sample(size))](benchmark::State& state) {
            const CodePage& page = CodePage::Windows1252();
            Text out(Enc64Length(input.size()), u'\0');
            for (auto _ : state) {
              Enc64To(input, page, out.data());
              benchmark::ClobberMemory();
            }
          });
  Measure(Name({"decode", std::to_string(size), kOurs}),
          [input = FromUtf8(EncodedSample(size))](benchmark::State& state) {
            const CodePage& page = CodePage::Windows1252();
            Text out(Dec64Room(input.size()), u'\0');
            for (auto _ : state) {
              benchmark::DoNotOptimize(Dec64To(input, page, out.data()));
              benchmark::ClobberMemory();
            }
          });
}

}  // namespace

void RegisterBase64() {
  for (const std::size_t size : kTextSizes) {
    RegisterOurs(size);
    for (const Base64Coder& coder : OtherBase64Coders()) {
      RegisterOther("encode", size, coder, coder.encode, Sample(size));
      RegisterOther("decode", size, coder, coder.decode, EncodedSample(size));
    }
  }
}

}  // namespace quill::bench
