#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <vector>

namespace pelvanto::test {

// A document that came out of the queue.
struct Druckauftrag {
  QString titel;
  QString datei;  // as it was sent: a PDF
};

// A print server (CUPS) of this process alone: its folders, its socket, one raw queue "Ablage", the default
// one, whose backend keeps every document. No other server on the machine is touched, and no special rights
// are needed.
class Druckserver {
 public:
  // Installed at all?
  static bool vorhanden();
  // The only one: the process asks once which server is its own, when it first has to do with printers.
  static Druckserver& einziger();

  Druckserver(const Druckserver&) = delete;
  Druckserver& operator=(const Druckserver&) = delete;
  ~Druckserver() { beenden(); }

  // A queue that does not accept documents is there, but refuses them. Waits until it answers; what the
  // server wrote if it does not come up.
  QString starten(bool nimmtAn = true);
  void beenden();
  // Waits for so many documents, in the order of their arrival; fewer after ten seconds.
  std::vector<Druckauftrag> auftraege(std::size_t anzahl) const;

 private:
  Druckserver();
  QString pfad(const QString& name) const { return ordner_.filePath(name); }
  void schreiben(const QString& name, QString inhalt) const;

  QTemporaryDir ordner_;
  QProcess server_;
};

}  // namespace pelvanto::test
