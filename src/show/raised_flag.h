#pragma once

namespace show {

/// A flag that is true while the object lives, whatever ends it.
class RaisedFlag {
  public:
    explicit RaisedFlag(bool& flag) : flag_(flag) { flag_ = true; }
    ~RaisedFlag() { flag_ = false; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

  private:
    bool& flag_;
};

}  // namespace show
