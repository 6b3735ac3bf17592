#include "platform/standard_streams.h"

#include <array>
#include <iostream>

#include "platform/write_standard_output.h"

class StandardOutput::Buffer : public std::streambuf {
public:
    Buffer() { setp(kept_.data(), kept_.data() + kept_.size()); }

    Printed state() const { return state_; }

protected:
    int_type overflow(int_type character) override {
        if (sync() != 0) return traits_type::eof();
        if (!traits_type::eq_int_type(character, traits_type::eof()))
            sputc(traits_type::to_char_type(character));
        return traits_type::not_eof(character);
    }

    int sync() override {
        if (state_ == Printed::kWhole)
            state_ = WriteStandardOutput({pbase(), static_cast<std::size_t>(pptr() - pbase())});
        setp(kept_.data(), kept_.data() + kept_.size());
        return state_ == Printed::kWhole ? 0 : -1;
    }

private:
    std::array<char, 4096> kept_{};
    Printed state_ = Printed::kWhole;
};

StandardOutput::StandardOutput()
    : buffer_(std::make_unique<Buffer>()), before_(std::cout.rdbuf(buffer_.get())) {}

StandardOutput::~StandardOutput() {
    Finish();
    std::cout.rdbuf(before_);
}

Printed StandardOutput::Finish() {
    buffer_->pubsync();
    return buffer_->state();
}
