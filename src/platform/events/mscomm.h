#pragma once

#include "base/bytes.h"
#include "platform/events/event_gate.h"

#include <QDeadlineTimer>
#include <QSerialPort>

#include <cstdint>
#include <string>

namespace orbkl4 {

/// The serial port control: one line, opened by port number, with an event when enough has come.
class MSComm : public QObject, private EventSource {
    Q_OBJECT
    Q_PROPERTY(bool portOpen READ PortOpen)
    Q_PROPERTY(int commPort READ CommPort)
    Q_PROPERTY(QString settings READ SettingsProperty)
    Q_PROPERTY(int rThreshold READ RThreshold)

  public:
    /// A closed port, child of `screen`, found by `name`.
    MSComm(QObject* screen, const char* name);
    ~MSComm() override;

    /// Port number, 1 upward; writing it while the port is open is an error.
    std::int16_t CommPort() const { return commPort_; }
    void CommPort(std::int16_t number);

    /// Line settings such as "38400,n,8,1", taken over at the next open; error 380 where they say
    /// nothing sensible.
    const std::string& Settings() const { return settings_; }
    void Settings(const std::string& settings);

    /// How many bytes `Input` takes at most; 0 is all there are.
    void InputLen(std::int16_t length) { inputLen_ = length; }

    /// Whether the control holds its port. Opening raises error 8002 for a number without a serial
    /// line, 70 where this user lacks permission, and 8005 where the line is in use. A line that
    /// was pulled out stays open until it is closed.
    bool PortOpen() const { return open_; }
    void PortOpen(bool open);

    /// Number of received bytes from which on `OnComm` comes; 0 lets none come.
    std::int16_t RThreshold() const { return rThreshold_; }
    void RThreshold(std::int16_t count) { rThreshold_ = count; }

    /// Hands `bytes` to the operating system at once; error 8018 on a closed port, 8012 where the
    /// device is gone.
    void Output(const Bytes& bytes);

    /// Takes in what has arrived, then moves all received bytes (up to `InputLen`) into `bytes`;
    /// error 8018 on a closed port.
    void Input(Bytes& bytes);

    /// Takes in what has arrived and counts the received bytes waiting; error 8018 on a closed
    /// port.
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
    void OnLineError();

    QSerialPort line_;
    std::int16_t commPort_ = 1;
    std::string settings_ = "9600,n,8,1";
    std::int16_t inputLen_ = 0;
    std::int16_t rThreshold_ = 0;
    bool open_ = false;
    bool gone_ = false;     ///< the line hung up; the handle closes by a queued call
    bool reading_ = false;  ///< readyRead comes from inside a read of our own
    Bytes received_;
    QDeadlineTimer sent_;  ///< when the bytes handed over have had their time on the line
};

}  // namespace orbkl4
