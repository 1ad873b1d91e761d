<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>NuBo Setting Tool</source>
        <translation>NuBo 設定ツール</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>アメリカ</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>日本</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>オーストラリア</translation>
    </message>
    <message>
        <source>Europe</source>
        <translation>ヨーロッパ</translation>
    </message>
</context>
<context>
    <name>ClCaptionBar</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>ClDialogAutoPoweroff</name>
    <message>
        <source>Set the time of auto power off</source>
        <translation>自動で電源を切るまでの時間を設定します</translation>
    </message>
    <message>
        <source>Not auto power off</source>
        <translation>自動で電源を切らない</translation>
    </message>
    <message>
        <source>Time of auto power off</source>
        <translation>自動で電源を切る</translation>
    </message>
</context>
<context>
    <name>ClDialogAutoWifiOff</name>
    <message>
        <source>Set the time of auto Wi-Fi off</source>
        <translation>自動で Wi-Fi を切るまでの時間を設定します</translation>
    </message>
    <message>
        <source>Not auto Wi-Fi off</source>
        <translation>自動で Wi-Fi を切らない</translation>
    </message>
    <message>
        <source>Time of auto Wi-Fi off</source>
        <translation>自動で Wi-Fi を切る</translation>
    </message>
    <message>
        <source>Minutes</source>
        <translation>分</translation>
    </message>
</context>
<context>
    <name>ClDialogBase</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>ClDialogCalendar</name>
    <message>
        <source>Previous month</source>
        <translation>前の月</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>次の月</translation>
    </message>
</context>
<context>
    <name>ClDialogGps</name>
    <message>
        <source>Set the GPS settings of NuBo</source>
        <translation>NuBo の GPS を設定します</translation>
    </message>
    <message>
        <source>Use GPS</source>
        <translation>GPS を使用する</translation>
    </message>
    <message>
        <source>Not use GPS</source>
        <translation>GPS を使用しない</translation>
    </message>
    <message>
        <source>Set to save GPS log</source>
        <translation>GPS ログの保存を設定します</translation>
    </message>
    <message>
        <source>Save logs</source>
        <translation>ログを保存する</translation>
    </message>
    <message>
        <source>Not save logs</source>
        <translation>ログを保存しない</translation>
    </message>
    <message>
        <source>Set the format of GPS log</source>
        <translation>GPS ログの形式を設定します</translation>
    </message>
    <message>
        <source>GGA+RMC</source>
        <translation>GGA+RMC</translation>
    </message>
    <message>
        <source>GGA+GLL+GSA+GSV+RMC+VTG+ZDA</source>
        <translation>GGA+GLL+GSA+GSV+RMC+VTG+ZDA</translation>
    </message>
    <message>
        <source>Set to auto adjust time from GPS info</source>
        <translation>GPS 情報による時刻の自動補正を設定します</translation>
    </message>
    <message>
        <source>Adjust time</source>
        <translation>時刻を補正する</translation>
    </message>
    <message>
        <source>Not adjust time</source>
        <translation>時刻を補正しない</translation>
    </message>
</context>
<context>
    <name>ClDialogImageQuarity</name>
    <message>
        <source>Setting contrast</source>
        <translation>コントラストの設定</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>淡い</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>濃い</translation>
    </message>
</context>
<context>
    <name>ClDialogLed</name>
    <message>
        <source>Can set to light led on power on</source>
        <translation>電源を入れたときの LED の点灯を設定します</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>点灯する</translation>
    </message>
    <message>
        <source>Not light</source>
        <translation>点灯しない</translation>
    </message>
</context>
<context>
    <name>ClDialogTimezone</name>
    <message>
        <source>Eniwetok/Kwajalein
GMT-12:00</source>
        <translation>エニウェトク、クェゼリン
GMT-12:00</translation>
    </message>
    <message>
        <source>Midway Island/Samoa
GMT-11:00</source>
        <translation>ミッドウェー島、サモア
GMT-11:00</translation>
    </message>
    <message>
        <source>Hawaii
GMT-10:00</source>
        <translation>ハワイ
GMT-10:00</translation>
    </message>
    <message>
        <source>Alaska
GMT-9:00</source>
        <translation>アラスカ
GMT-9:00</translation>
    </message>
    <message>
        <source>Pacific STD Time
GMT-8:00</source>
        <translation>太平洋標準時
GMT-8:00</translation>
    </message>
    <message>
        <source>Mountain STD Time
GMT-7:00</source>
        <translation>山地標準時
GMT-7:00</translation>
    </message>
    <message>
        <source>Central STD Time
GMT-6:00</source>
        <translation>中部標準時
GMT-6:00</translation>
    </message>
    <message>
        <source>Eastern STD Time
GMT-5:00</source>
        <translation>東部標準時
GMT-5:00</translation>
    </message>
    <message>
        <source>Atlantic STD Time
GMT-4:00</source>
        <translation>大西洋標準時
GMT-4:00</translation>
    </message>
    <message>
        <source>Brasilia/Buenos Aires
GMT-3:00</source>
        <translation>ブラジリア、ブエノスアイレス
GMT-3:00</translation>
    </message>
    <message>
        <source>Central Atlantic
GMT-2:00</source>
        <translation>中部大西洋
GMT-2:00</translation>
    </message>
    <message>
        <source>Azores Islands
GMT-1:00</source>
        <translation>アゾレス諸島
GMT-1:00</translation>
    </message>
    <message>
        <source>London/Lisbon
GMT+0:00</source>
        <translation>ロンドン、リスボン
GMT+0:00</translation>
    </message>
    <message>
        <source>Paris/Berlin/Rome
GMT+1:00</source>
        <translation>パリ、ベルリン、ローマ
GMT+1:00</translation>
    </message>
    <message>
        <source>Athens/Cairo/Helsink
GMT+2:00</source>
        <translation>アテネ、カイロ、ヘルシンキ
GMT+2:00</translation>
    </message>
    <message>
        <source>Moscow/Baghdad
GMT+3:00</source>
        <translation>モスクワ、バグダッド
GMT+3:00</translation>
    </message>
    <message>
        <source>Abu Dhabi
GMT+4:00</source>
        <translation>アブダビ
GMT+4:00</translation>
    </message>
    <message>
        <source>Islamabad/Karachi
GMT+5:00</source>
        <translation>イスラマバード、カラチ
GMT+5:00</translation>
    </message>
    <message>
        <source>Dhaka/Novosibirsk
GMT+6:00</source>
        <translation>ダッカ、ノボシビルスク
GMT+6:00</translation>
    </message>
    <message>
        <source>Bangkok/Hanoi
GMT+7:00</source>
        <translation>バンコク、ハノイ
GMT+7:00</translation>
    </message>
    <message>
        <source>Beijing/Singapore
GMT+8:00</source>
        <translation>北京、シンガポール
GMT+8:00</translation>
    </message>
    <message>
        <source>Tokyo/Seoul/Yakutsk
GMT+9:00</source>
        <translation>東京、ソウル、ヤクーツク
GMT+9:00</translation>
    </message>
    <message>
        <source>Melbourne/Vladivostok
GMT+10:00</source>
        <translation>メルボルン、ウラジオストク
GMT+10:00</translation>
    </message>
    <message>
        <source>New Caledonia
GMT+11:00</source>
        <translation>ニューカレドニア
GMT+11:00</translation>
    </message>
    <message>
        <source>Auckland/Fiji
GMT+12:00</source>
        <translation>オークランド、フィジー
GMT+12:00</translation>
    </message>
</context>
<context>
    <name>ClLinkCheck</name>
    <message>
        <source>Linked</source>
        <translation>接続済み</translation>
    </message>
</context>
<context>
    <name>ClMessageBox</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
</context>
<context>
    <name>ClTimeRow</name>
    <message>
        <source>Hours</source>
        <translation>時間</translation>
    </message>
    <message>
        <source>Minutes</source>
        <translation>分</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>秒</translation>
    </message>
</context>
<context>
    <name>ClWidgetBase</name>
    <message>
        <source>Timeout error, please reset</source>
        <translation>タイムアウトしました。カメラを再起動してください</translation>
    </message>
    <message>
        <source>Parameter setting failed</source>
        <translation>パラメーターの設定に失敗しました</translation>
    </message>
    <message>
        <source>Command error, version up</source>
        <translation>カメラがこの操作に対応していません。ファームウェアを更新してください</translation>
    </message>
    <message>
        <source>Exec failed, unknown error</source>
        <translation>原因不明のエラーにより実行できませんでした</translation>
    </message>
</context>
<context>
    <name>ClWidgetBasicSetting</name>
    <message>
        <source>Setting camera name</source>
        <translation>カメラ名の設定</translation>
    </message>
    <message>
        <source>Time setting</source>
        <translation>日時の設定</translation>
    </message>
    <message>
        <source>Setting time zone</source>
        <translation>タイムゾーンの設定</translation>
    </message>
    <message>
        <source>Setting time</source>
        <translation>日付と時刻の設定</translation>
    </message>
    <message>
        <source>Wi-Fi setting</source>
        <translation>Wi-Fi の設定</translation>
    </message>
    <message>
        <source>Setting auto Wi-Fi off</source>
        <translation>Wi-Fi 自動オフの設定</translation>
    </message>
    <message>
        <source>Setting Wi-Fi country</source>
        <translation>Wi-Fi 使用国の設定</translation>
    </message>
    <message>
        <source>Setting auto power off</source>
        <translation>自動電源オフの設定</translation>
    </message>
    <message>
        <source>Setting LED</source>
        <translation>LED の設定</translation>
    </message>
    <message>
        <source>Setting GPS</source>
        <translation>GPS の設定</translation>
    </message>
    <message>
        <source>Setting user authorization</source>
        <translation>ユーザー認証の設定</translation>
    </message>
    <message>
        <source>Setting interval</source>
        <translation>インターバルタイマーの設定</translation>
    </message>
    <message>
        <source>Image quarity</source>
        <translation>画質の設定</translation>
    </message>
    <message>
        <source>Set the favarite camera name</source>
        <translation>お好みのカメラ名を設定します</translation>
    </message>
    <message>
        <source>No camera name</source>
        <translation>カメラ名が入力されていません</translation>
    </message>
    <message>
        <source>Set the authorization that enhances security</source>
        <translation>セキュリティを高めるための認証を設定します</translation>
    </message>
    <message>
        <source>Not use authorization</source>
        <translation>認証を使用しない</translation>
    </message>
    <message>
        <source>Use authorization</source>
        <translation>認証を使用する</translation>
    </message>
    <message>
        <source>Now password</source>
        <translation>現在のパスワード</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>新しいパスワード</translation>
    </message>
    <message>
        <source>Check password</source>
        <translation>新しいパスワード（確認）</translation>
    </message>
    <message>
        <source>There are not input value</source>
        <translation>入力されていない項目があります</translation>
    </message>
    <message>
        <source>Different now password</source>
        <translation>現在のパスワードが違います</translation>
    </message>
    <message>
        <source>Not same password new and check</source>
        <translation>新しいパスワードと確認用のパスワードが一致しません</translation>
    </message>
    <message>
        <source>Not change password</source>
        <translation>パスワードが変更されていません</translation>
    </message>
    <message>
        <source>Set the interval timer
Use the interval timer that keep capture at a certain interval</source>
        <translation>インターバルタイマーを設定します
一定の間隔で撮影を続けるときに使用します</translation>
    </message>
    <message>
        <source>Use interval timer</source>
        <translation>インターバルタイマーを使用する</translation>
    </message>
    <message>
        <source>Not use interval timer</source>
        <translation>インターバルタイマーを使用しない</translation>
    </message>
    <message>
        <source>Time of interval that captured</source>
        <translation>撮影間隔</translation>
    </message>
    <message>
        <source>Time of until start interval timer</source>
        <translation>撮影開始までの時間</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>年</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>月</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>日</translation>
    </message>
    <message>
        <source>Hour</source>
        <translation>時</translation>
    </message>
    <message>
        <source>Minute</source>
        <translation>分</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>Invalid year
Set from 2000 to 2100</source>
        <translation>年が正しくありません
2000 から 2100 の間で設定してください</translation>
    </message>
    <message>
        <source>Synchronize PC</source>
        <translation>PC と同期</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>カレンダー</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>日本</translation>
    </message>
    <message>
        <source>United States,Canada,Taiwan</source>
        <translation>アメリカ、カナダ、台湾</translation>
    </message>
    <message>
        <source>EU</source>
        <translation>EU</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
</context>
<context>
    <name>ClWidgetHelp</name>
    <message>
        <source>Setting Application</source>
        <translation>設定アプリケーション</translation>
    </message>
    <message>
        <source>NuBoSettingTool version</source>
        <translation>設定ツールのバージョン</translation>
    </message>
    <message>
        <source>NuBo firmware version</source>
        <translation>ファームウェアのバージョン</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>シリアル番号</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC アドレス</translation>
    </message>
    <message>
        <source>Create day</source>
        <translation>製造日</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>国／地域</translation>
    </message>
    <message>
        <source>yyyy/MM/dd</source>
        <translation>yyyy年M月d日</translation>
    </message>
</context>
<context>
    <name>ClWidgetSelectMode</name>
    <message>
        <source>Camera state</source>
        <translation>カメラの状態</translation>
    </message>
    <message>
        <source>Network setting</source>
        <translation>ネットワーク設定</translation>
    </message>
    <message>
        <source>Basic setting</source>
        <translation>基本設定</translation>
    </message>
    <message>
        <source>Stream setting</source>
        <translation>ストリーム設定</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>ClWidgetStreamSetting</name>
    <message>
        <source>%1 setting</source>
        <translation>%1の設定</translation>
    </message>
    <message>
        <source>Rec</source>
        <translation>録画</translation>
    </message>
    <message>
        <source>LiveView</source>
        <translation>ライブビュー</translation>
    </message>
    <message>
        <source>Set failed for recording</source>
        <translation>録画の設定を変更できませんでした</translation>
    </message>
    <message>
        <source>Set the image quality at the time of %1</source>
        <translation>%1時の画質を設定します</translation>
    </message>
    <message>
        <source>Set the fps at the time of %1</source>
        <translation>%1時のフレームレートを設定します</translation>
    </message>
    <message>
        <source>Full HD(1920x1080)</source>
        <translation>フル HD (1920x1080)</translation>
    </message>
    <message>
        <source>HD(1280x720)</source>
        <translation>HD (1280x720)</translation>
    </message>
    <message>
        <source>Economy(640x480)</source>
        <translation>エコノミー (640x480)</translation>
    </message>
    <message>
        <source>Fine(800x480)</source>
        <translation>ファイン (800x480)</translation>
    </message>
    <message>
        <source>Standard(320x240)</source>
        <translation>スタンダード (320x240)</translation>
    </message>
    <message>
        <source>30 sheets(30fps)</source>
        <translation>毎秒 30 枚 (30fps)</translation>
    </message>
    <message>
        <source>15 sheets(15fps)</source>
        <translation>毎秒 15 枚 (15fps)</translation>
    </message>
    <message>
        <source>10 sheets(10fps)</source>
        <translation>毎秒 10 枚 (10fps)</translation>
    </message>
    <message>
        <source>6 sheets(6fps)</source>
        <translation>毎秒 6 枚 (6fps)</translation>
    </message>
    <message>
        <source>1 sheets(1fps)</source>
        <translation>毎秒 1 枚 (1fps)</translation>
    </message>
</context>
<context>
    <name>ClWidgetNotConnect</name>
    <message>
        <source>Connect camera by USB cable</source>
        <translation>カメラを USB ケーブルで接続してください</translation>
    </message>
</context>
<context>
    <name>ClLabelWifiState</name>
    <message>
        <source>Not link</source>
        <translation>未接続</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>接続済み</translation>
    </message>
    <message>
        <source>Adhoc Link</source>
        <translation>アドホック接続</translation>
    </message>
</context>
<context>
    <name>ClWidgetCameraState</name>
    <message>
        <source>Battery charge</source>
        <translation>バッテリー残量</translation>
    </message>
    <message>
        <source>Wi-Fi state</source>
        <translation>Wi-Fi の状態</translation>
    </message>
    <message>
        <source>Receiver sensitivity</source>
        <translation>受信感度</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>チャンネル</translation>
    </message>
    <message>
        <source>SD card</source>
        <translation>SD カード</translation>
    </message>
    <message>
        <source>Total capacity</source>
        <translation>総容量</translation>
    </message>
    <message>
        <source>Free capacity</source>
        <translation>空き容量</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>種別</translation>
    </message>
    <message>
        <source>%1 Byte</source>
        <translation>%1 バイト</translation>
    </message>
    <message>
        <source> (%1% used)</source>
        <translation> (%1% 使用済み)</translation>
    </message>
    <message>
        <source>SD card format</source>
        <translation>SD カードのフォーマット</translation>
    </message>
    <message>
        <source>Initialize settings</source>
        <translation>設定の初期化</translation>
    </message>
    <message>
        <source>Reset NuBo</source>
        <translation>NuBo の再起動</translation>
    </message>
    <message>
        <source>All data delete on SD card</source>
        <translation>SD カードのデータがすべて消去されます</translation>
    </message>
    <message>
        <source>Initialize all settings</source>
        <translation>すべての設定を初期化します</translation>
    </message>
    <message>
        <source>Reset NuBo and restart</source>
        <translation>NuBo をリセットして再起動します</translation>
    </message>
    <message>
        <source>Completed %1</source>
        <translation>%1が完了しました</translation>
    </message>
</context>
<context>
    <name>ClWidgetNetworkSetting</name>
    <message>
        <source>Infrastructure</source>
        <translation>インフラストラクチャー</translation>
    </message>
    <message>
        <source>Adhoc</source>
        <translation>アドホック</translation>
    </message>
    <message>
        <source>Connect %1 on startup</source>
        <translation>起動時に%1で接続する</translation>
    </message>
    <message>
        <source>AP of selecting</source>
        <translation>選択中のアクセスポイント</translation>
    </message>
    <message>
        <source>AP search and setting</source>
        <translation>アクセスポイントの検索と設定</translation>
    </message>
    <message>
        <source>AP manual setting</source>
        <translation>アクセスポイントの手動設定</translation>
    </message>
    <message>
        <source>Display list that can connect AP</source>
        <translation>接続できるアクセスポイントの一覧</translation>
    </message>
    <message>
        <source>Research</source>
        <translation>再検索</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Decision</source>
        <translation>決定</translation>
    </message>
    <message>
        <source>Input the encryption key of AP</source>
        <translation>アクセスポイントの暗号化キーを入力してください</translation>
    </message>
    <message>
        <source>Show input</source>
        <translation>入力した文字を表示する</translation>
    </message>
    <message>
        <source>Not input key</source>
        <translation>暗号化キーが入力されていません</translation>
    </message>
    <message>
        <source>Input SSID to connect AP</source>
        <translation>接続するアクセスポイントの SSID を入力してください</translation>
    </message>
    <message>
        <source>SSID</source>
        <translation>SSID</translation>
    </message>
    <message>
        <source>Set ON when use DHCP server</source>
        <translation>DHCP サーバーを使用する場合は ON にしてください</translation>
    </message>
    <message>
        <source>DHCP</source>
        <translation>DHCP</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>ON</translation>
    </message>
    <message>
        <source>OFF</source>
        <translation>OFF</translation>
    </message>
    <message>
        <source>Set the IP Address, Subnetmask and Default Gateway</source>
        <translation>IP アドレス、サブネットマスク、デフォルトゲートウェイを設定してください</translation>
    </message>
    <message>
        <source>IP Address</source>
        <translation>IP アドレス</translation>
    </message>
    <message>
        <source>Subnetmask</source>
        <translation>サブネットマスク</translation>
    </message>
    <message>
        <source>Default Gateway</source>
        <translation>デフォルトゲートウェイ</translation>
    </message>
    <message>
        <source>Not valid settings of network</source>
        <translation>ネットワークの設定が正しくありません</translation>
    </message>
    <message>
        <source>SSID of adhoc</source>
        <translation>アドホックの SSID</translation>
    </message>
    <message>
        <source>Encryption key of adhoc</source>
        <translation>アドホックの暗号化キー</translation>
    </message>
    <message>
        <source>Set the IP Adderss and Subnetmask when connect by adhoc</source>
        <translation>アドホック接続時の IP アドレスとサブネットマスクを設定してください</translation>
    </message>
</context>
<context>
    <name>ClWidgetRssi</name>
    <message>
        <source>Signal strength %1</source>
        <translation>電波の強さ %1</translation>
    </message>
</context>
</TS>
