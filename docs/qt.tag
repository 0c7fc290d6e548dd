<?xml version="1.0" encoding="UTF-8"?>
<!-- The classes of Qt that the public headers name, so that Doxygen links them to Qt's reference. -->
<tagfile>
  <compound kind="class"><name>QAbstractButton</name><filename>qabstractbutton.html</filename></compound>
  <compound kind="class"><name>QApplication</name><filename>qapplication.html</filename></compound>
  <compound kind="class"><name>QColor</name><filename>qcolor.html</filename></compound>
  <compound kind="class"><name>QNetworkAccessManager</name><filename>qnetworkaccessmanager.html</filename></compound>
  <compound kind="class"><name>QNetworkProxy</name><filename>qnetworkproxy.html</filename></compound>
  <compound kind="class"><name>QObject</name><filename>qobject.html</filename></compound>
  <compound kind="class"><name>QSize</name><filename>qsize.html</filename></compound>
  <compound kind="class"><name>QString</name><filename>qstring.html</filename></compound>
  <compound kind="class"><name>QWidget</name><filename>qwidget.html</filename></compound>
</tagfile>
