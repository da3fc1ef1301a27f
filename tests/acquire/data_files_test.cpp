#include "acquire/data_files.h"

#include "main_window/start_up.h"
#include "platform/system/file_channel.h"
#include "platform/system/folders.h"
#include "platform/windows/common_dialog.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"
#include "state/sample_state.h"
#include "support/box_answerer.h"
#include "support/file_dialog_answerer.h"
#include "support/temporary_folders.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace orbkl4::test {

namespace {

class DataFiles : public testing::Test {
  protected:
    DataFiles() {
        AppState = {};
        SampleState = {};
        AppState.VersionText = "2.0.4";
        TestForFileFolders();
        dialog = new CommonDialog(&screen, "CommonDialog1");
    }
    ~DataFiles() override { Channel1().Close(); }

    static QString InFolder(const char* leaf) {
        return DataFilesFolder() + QLatin1Char('/') + QLatin1String(leaf);
    }

    static void Use(const QString& path) { AppState.DataFileName = path.toStdString(); }

    TemporaryFolders folders;
    Screen screen{"Vectors", "Vectors"};
    CommonDialog* dialog;
};

/// Lets this process write no file beyond `bytes`, as on a disk that is full there.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : formerHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    void (*formerHandler_)(int);
    rlimit former_{};
};

}  // namespace

TEST_F(DataFiles, AFileBeginsWithItsHead) {
    FileDialogAnswerer hand({QStringLiteral("flight"), QStringLiteral("flight.csv")});
    CreateDataFile(screen, "Quaternions");
    WriteQuaternionsToFile(Side::Gyro, "0");
    CreateDataFile(screen, "Quaternions");  // overwrites head and row
    EXPECT_EQ(hand.Folder(), DataFilesFolder());
    EXPECT_EQ(hand.Filter(), "CSV Files (*.csv)");
    EXPECT_EQ(AppState.DataFileName, InFolder("flight.csv").toStdString());
    const QStringList lines =
        QString::fromUtf8(ContentOf(InFolder("flight.csv"))).split(QStringLiteral("\r\n"));
    ASSERT_EQ(lines.size(), 6) << "five lines, each ended";
    EXPECT_EQ(lines[0], "Kestrelmoor ORB-KL4 Data File Version 2.0.4");
    const QLocale system = QLocale::system();
    const QString time = QStringLiteral("Time file created: ");
    EXPECT_EQ(lines[1], QStringLiteral("Date file created: ") +
                            system.toString(QDate::currentDate(), QLocale::ShortFormat));
    ASSERT_TRUE(lines[2].startsWith(time));
    EXPECT_TRUE(system.toTime(lines[2].mid(time.size()), QLocale::ShortFormat).isValid());
    EXPECT_EQ(lines[3], "Quaternions");
    EXPECT_EQ(lines[4], "Time(Seconds),Quat0,Quat1,Quat2,Quat3,TimerTicks");
    EXPECT_TRUE(lines[5].isEmpty());
}

TEST_F(DataFiles, OfAnUnknownKindHaveNoColumnNamesAndStayOpen) {
    const FileDialogAnswerer hand({QStringLiteral("other")});
    CreateDataFile(screen, "Other");
    EXPECT_TRUE(Channel1().IsOpen());
    EXPECT_EQ(ContentOf(InFolder("other.csv")).count("\r\n"), 4);
    Channel1().Close();
}

TEST_F(DataFiles, CancelAndFailureEndSilently) {
    Use(InFolder("earlier.csv"));
    const BoxAnswerer boxes;
    {
        FileDialogAnswerer hand({QString()});
        CreateDataFile(screen, "Vectors");
        EXPECT_EQ(hand.Count(), 1U);
        EXPECT_EQ(AppState.DataFileName, InFolder("earlier.csv").toStdString());
        EXPECT_TRUE(dialog->FileName().isEmpty());
        EXPECT_EQ(SampleState.FailureText, "") << "Cancel is no failure";
    }
    QFile kept(InFolder("kept.csv"));
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
    kept.write("precious");
    kept.close();
    {
        const FileDialogAnswerer refuses({InFolder("kept.csv")}, false);
        CreateDataFile(screen, "Vectors");
        EXPECT_EQ(ContentOf(InFolder("kept.csv")), "precious");
    }
    {
        const FullDisk disk(20);
        const FileDialogAnswerer overwrites({InFolder("kept.csv")});
        CreateDataFile(screen, "Vectors");
        EXPECT_EQ(ContentOf(InFolder("kept.csv")), "") << "not half a line";
        EXPECT_EQ(AppState.DataFileName, InFolder("kept.csv").toStdString());
        EXPECT_EQ(SampleState.FailureText, "Disk full");
        EXPECT_EQ(SampleState.FailedFile, AppState.DataFileName);
    }
    EXPECT_EQ(boxes.Count(), 2U) << "the dialog's own questions about overwriting alone";
    EXPECT_FALSE(Channel1().IsOpen());
}

TEST_F(DataFiles, EachRowIsAppendedToTheFileOfTheMoment) {
    SampleState.Pitch = -0.5;
    SampleState.TicksGyro = 7;
    SampleState.TicksInstant = 9;
    Use(InFolder("first.csv"));
    WriteAnglesToFile(Side::Gyro, "0");
    Use(InFolder("second.csv"));
    WriteAnglesToFile(Side::Instant, ".75");
    Use(InFolder("first.csv"));
    WriteAnglesToFile(Side::Instant, "1.5");
    EXPECT_EQ(ContentOf(InFolder("first.csv")), "0,-.5, 0, 0, 7\r\n1.5,-.5, 0, 0, 9\r\n");
    EXPECT_EQ(ContentOf(InFolder("second.csv")), ".75,-.5, 0, 0, 9\r\n");
    EXPECT_FALSE(Channel1().IsOpen());
}

TEST_F(DataFiles, AFileThatCannotBeOpenedIsReportedUnderTheWriter) {
    Use(InFolder("no such folder/file.csv"));
    const BoxAnswerer boxes({}, QMessageBox::Retry);
    WriteSensorBitsToFile("0");
    WriteVectorsToFile(Side::Gyro, "0");
    WriteQuaternionsToFile(Side::Gyro, "0");
    WriteMatrixToFile(Side::Instant, "0");
    WriteAnglesToFile(Side::Gyro, "0");
    WriteQuatVecsToFile(Side::Gyro, "0");
    WriteAnglesAccRateVectorsToFile("0");
    const char* names[] = {"SensorBits", "Vectors",  "Quaternions",         "Matrix",
                           "Angles",     "QuatVecs", "AnglesAccRateVectors"};
    ASSERT_EQ(boxes.Count(), std::size(names));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        EXPECT_EQ(boxes.Error(i), std::string("76 Write") + names[i] + "ToFile General");
    }
}

TEST_F(DataFiles, AFullDiskLosesWholeRowsAndLeavesNoPart) {
    Use(InFolder("full.csv"));
    const QByteArray row = "0, 0, 0, 0, 0, 0\r\n";  // 18 bytes
    const BoxAnswerer boxes({}, QMessageBox::Retry);
    {
        const FullDisk disk(2 * 18 + 5);
        for (int i = 0; i < 3; ++i) WriteQuaternionsToFile(Side::Gyro, "0");
        EXPECT_EQ(ContentOf(InFolder("full.csv")), row + row);
        EXPECT_EQ(boxes.Texts(),
                  std::vector<std::string>{"The SimpleErrorHandler sub routine has errored!"})
            << "the channel is still open when the error handler wants it";
        EXPECT_FALSE(Channel1().IsOpen());
        EXPECT_EQ(SampleState.LostRows, 1);
        EXPECT_EQ(SampleState.RowsOfDataFile, 2);
    }
    WriteQuaternionsToFile(Side::Gyro, "0");
    EXPECT_EQ(ContentOf(InFolder("full.csv")), row + row + row) << "the next sample tries again";
    EXPECT_EQ(boxes.Count(), 1U);
    EXPECT_EQ(SampleState.FailureText, "Disk full") << "also when writing works again";
}

}  // namespace orbkl4::test
