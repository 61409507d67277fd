#undef QT_NO_CAST_FROM_ASCII
#include "support/BenchTest.h"
#include "support/TestBench.h"
#include "support/ScriptedMedia.h"
#include "imagetools/frmMedia.h"
#include "imagetools/frmWav.h"
#include "imagetools/frmColor.h"
#include "imagetools/frmColorNames.h"
#include <QtWidgets>
using namespace ob;
#undef QT_NO_CAST_FROM_ASCII
int main(int c,char**v){ QApplication a(c,v); QStandardPaths::setTestModeEnabled(true);
 if(c>1&&QString::fromLatin1(v[1])=="dark"){ QPalette p; p.setColor(QPalette::Window,QColor(45,45,48)); p.setColor(QPalette::WindowText,Qt::white); p.setColor(QPalette::Base,QColor(30,30,30)); p.setColor(QPalette::AlternateBase,QColor(45,45,48)); p.setColor(QPalette::Text,Qt::white); p.setColor(QPalette::Button,QColor(60,60,64)); p.setColor(QPalette::ButtonText,Qt::white); p.setColor(QPalette::Highlight,QColor(50,110,190)); p.setColor(QPalette::HighlightedText,Qt::white); p.setColor(QPalette::PlaceholderText,Qt::gray); a.setPalette(p);} 
 QString s=QString::fromLatin1(c>1?v[1]:"light"); TestBench b; b.Start(); ScriptedMedia m; m.length=95000; 
 b.Write("beep.wav","x"); b.Write("horn.wav","x"); b.Write("chimes.wav","x");
 auto save=[&](QDialog&d,const QString&n){ d.show(); QTest::qWait(150); d.grab().save("/tmp/mm/"+n+"-"+s+".png"); };
 { frmMedia w; QDir().mkpath("/tmp/music"); QFile f("/tmp/music/overture.mid"); f.open(QIODevice::WriteOnly); f.write("x"); f.close(); b.dialogs.ExpectFile(FilePurpose::Open,"Open File...","Media Files|*.MID;*.AVI;*.MPG;*.MPEG;*.MP3","/tmp/music/overture.mid"); w.show(); w.findChild<QPushButton*>("cmdOpen")->click(); m.position=37000; m.trouble=c>2?MediaTrouble::NoSoundDevice:MediaTrouble::None; w.findChild<QPushButton*>("cmdPlay")->click(); QTest::qWait(200); save(w,"media"); }
 { QDir().mkpath("/tmp/music/sounds"); for(auto n:{"bell.wav","chimes.wav","horn.wav","whistle.wav"}){QFile f(QString("/tmp/music/sounds/")+n); f.open(QIODevice::WriteOnly); f.write("x");} QDir::setCurrent("/tmp/music/sounds"); m.trouble=MediaTrouble::None; frmWav w; w.show(); QTest::qWait(200); auto*l=w.findChild<QListView*>("Fil"); l->setCurrentIndex(l->model()->index(1,0)); save(w,"wav"); }
 { frmColor w; w.findChild<QSlider*>("Slider1_0")->setValue(210); w.findChild<QSlider*>("Slider1_1")->setValue(90); w.findChild<QSlider*>("Slider1_2")->setValue(60); save(w,"color"); }
 { frmColorNames w; save(w,"names"); }
}
