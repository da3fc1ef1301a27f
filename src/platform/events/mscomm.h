#pragma once

#include "base/bytes.h"
#include "platform/events/event_gate.h"

#include <QSerialPort>
#include <QSocketNotifier>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace orbkl4 {

/// The serial port control: one line, opened by port number, with an event when enough
/// bytes have arrived.
class MSComm : public QObject, private EventSource {
    Q_OBJECT
    Q_PROPERTY(bool portOpen READ PortOpen)
    Q_PROPERTY(int commPort READ CommPort)
    Q_PROPERTY(QString settings READ SettingsProperty)
    Q_PROPERTY(int rThreshold READ RThreshold)

  public:
    /// A closed port named `name`, child of `screen`.
    MSComm(QObject* screen, const char* name);
    ~MSComm() override;

    /// Port number from 1; error 8005 if it is written while the port is open.
    std::int16_t CommPort() const { return commPort_; }
    void CommPort(std::int16_t number);

    /// Line settings such as "38400,n,8,1", applied at the next open; error 380 for invalid ones.
    const std::string& Settings() const { return settings_; }
    void Settings(const std::string& settings);

    /// The most bytes that `Input` takes; 0 for all.
    void InputLen(std::int16_t length) { inputLen_ = length; }

    /// Whether the port is open. Opening raises error 8002 for a number without a serial line, 70
    /// if this user lacks permission, and 8005 if the line is in use. A port stays open when its
    /// line is pulled out.
    bool PortOpen() const { return open_; }
    void PortOpen(bool open);

    /// Number of received bytes that raises `OnComm`; 0 for no events.
    std::int16_t RThreshold() const { return rThreshold_; }
    void RThreshold(std::int16_t count) { rThreshold_ = count; }

    /// Hands `bytes` to the operating system at once; error 8018 on a closed port, 8012 if the
    /// device is gone.
    void Output(const Bytes& bytes);

    /// Moves all received bytes (up to `InputLen`) into `bytes`; error 8018 on a closed port.
    void Input(Bytes& bytes);

    /// The number of received bytes waiting; error 8018 on a closed port.
    std::int16_t InBufferCount();

  signals:
    void OnComm();

  private:
    bool EventDue() const override;
    void DeliverEvent() override { emit OnComm(); }
    QString SettingsProperty() const { return QString::fromStdString(settings_); }
    void RequireOpen() const;
    void OpenPort();
    void ClosePort();
    void TakeIn();
    void CloseLine();
    void OnLineError();

    QSerialPort line_;
    std::unique_ptr<QSocketNotifier> hangUp_;  ///< fires while the open line reports a hang-up
    std::int16_t commPort_ = 1;
    std::string settings_ = "9600,n,8,1";
    std::int16_t inputLen_ = 0;
    std::int16_t rThreshold_ = 0;
    bool open_ = false;
    bool gone_ = false;     ///< the line hung up; a queued call closes its handle
    bool reading_ = false;  ///< our own read emits readyRead
    Bytes received_;
    std::chrono::steady_clock::time_point sent_;  ///< when the bytes handed over have left the line
};

}  // namespace orbkl4
