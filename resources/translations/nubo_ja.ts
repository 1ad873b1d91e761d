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
        <translation>アメリカ合衆国</translation>
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
    <name>ClLinkCheck</name>
    <message>
        <source>Linked</source>
        <translation>接続中のアクセスポイント</translation>
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
    <name>ClWidgetBase</name>
    <message>
        <source>Timeout error, please reset</source>
        <translation>応答がありません。カメラをリセットしてください</translation>
    </message>
    <message>
        <source>Parameter setting failed</source>
        <translation>設定値をカメラに書き込めませんでした</translation>
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
        <translation>30 枚 (30fps)</translation>
    </message>
    <message>
        <source>15 sheets(15fps)</source>
        <translation>15 枚 (15fps)</translation>
    </message>
    <message>
        <source>10 sheets(10fps)</source>
        <translation>10 枚 (10fps)</translation>
    </message>
    <message>
        <source>6 sheets(6fps)</source>
        <translation>6 枚 (6fps)</translation>
    </message>
    <message>
        <source>1 sheets(1fps)</source>
        <translation>1 枚 (1fps)</translation>
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
        <translation>SD カードの初期化</translation>
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
</TS>
